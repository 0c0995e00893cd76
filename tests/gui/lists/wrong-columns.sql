-- Code tables of somebody else's.
CREATE TABLE "Enum Tables" ("State Code" text, "Table Name" text, "Enum Code" text, "Description" text);
INSERT INTO "Enum Tables" VALUES ('MD', 'County', '7', 'Carroll');
