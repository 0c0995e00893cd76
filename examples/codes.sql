-- The sample code tables: what a picker offers for a state and a table. Made for SQLite:
--     sqlite3 codes.db <codes.sql
-- A bar between blanks starts a new line of a description.

CREATE TABLE "Enum Tables" (
    "State Code" text NOT NULL,
    "Table Name" text NOT NULL,
    "Enum Code" text NOT NULL,
    "Enum Text" text,
    PRIMARY KEY ("State Code", "Table Name", "Enum Code")
);

-- Each with what it means, on lines of its own.
INSERT INTO "Enum Tables" VALUES
    ('US', 'Filing Status', '1', 'Single | Unmarried, or legally separated on December 31'),
    ('US', 'Filing Status', '2', 'Married filing jointly | Both spouses report their income on one return'),
    ('US', 'Filing Status', '3', 'Married filing separately'),
    ('US', 'Filing Status', '4', 'Head of household | Unmarried, and paid more than half of the cost | of a home for a child or relative'),
    ('US', 'Filing Status', '5', 'Qualifying surviving spouse | The spouse died in one of the two years before');

-- A state's own, by name only. The second line of an entry is indented: where no codes stand beside them it would be
-- taken for another entry.
INSERT INTO "Enum Tables" VALUES
    ('MD', 'Filing Status', '1', 'Single'),
    ('MD', 'Filing Status', '2', 'Married filing jointly'),
    ('MD', 'Filing Status', '3', 'Married filing separately'),
    ('MD', 'Filing Status', '4', 'Head of household'),
    ('MD', 'Filing Status', '5', 'Qualifying surviving spouse |     with a dependent child'),
    ('MD', 'Filing Status', '6', 'Dependent taxpayer');

INSERT INTO "Enum Tables" VALUES
    ('US', 'Exempt Payee', '1', 'Tax-exempt organization or retirement account'),
    ('US', 'Exempt Payee', '2', 'The United States, its agencies and instrumentalities'),
    ('US', 'Exempt Payee', '3', 'A state, a possession or one of their subdivisions'),
    ('US', 'Exempt Payee', '4', 'A foreign government'),
    ('US', 'Exempt Payee', '5', 'A corporation'),
    ('US', 'Exempt Payee', '6', 'A registered dealer in securities or commodities'),
    ('US', 'Exempt Payee', '7', 'A futures commission merchant'),
    ('US', 'Exempt Payee', '8', 'A real estate investment trust'),
    ('US', 'Exempt Payee', '9', 'A registered investment company'),
    ('US', 'Exempt Payee', '10', 'A common trust fund run by a bank'),
    ('US', 'Exempt Payee', '11', 'A financial institution'),
    ('US', 'Exempt Payee', '12', 'A middleman known as a nominee or custodian'),
    ('US', 'Exempt Payee', '13', 'An exempt trust');

-- A code may hold a quote.
INSERT INTO "Enum Tables" VALUES
    ('US', 'Depreciation', 'S/L', 'Straight line'),
    ('US', 'Depreciation', '150DB', 'Declining balance, 150 %'),
    ('US', 'Depreciation', '200DB', 'Declining balance, 200 %'),
    ('US', 'Depreciation', 'ACRS''81', 'Accelerated recovery, property of 1981 to 1983'),
    ('US', 'Depreciation', 'ACRS''84', 'Accelerated recovery, property of 1984 to 1986'),
    ('US', 'Depreciation', 'Amortization', 'Start-up costs, goodwill, patents');

-- Counties, and below them some towns with a rate of their own.
INSERT INTO "Enum Tables" VALUES
    ('MD', 'County', '1', 'Allegany'),
    ('MD', 'County', '2', 'Anne Arundel'),
    ('MD', 'County', '3', 'Baltimore County'),
    ('MD', 'County', '4', 'Baltimore City'),
    ('MD', 'County', '5', 'Calvert'),
    ('MD', 'County', '6', 'Caroline'),
    ('MD', 'County', '7', 'Carroll'),
    ('MD', 'County', '8', 'Cecil'),
    ('MD', 'County', '9', 'Charles'),
    ('MD', 'County', '10', 'Dorchester'),
    ('MD', 'County', '11', 'Frederick'),
    ('MD', 'County', '12', 'Garrett'),
    ('MD', 'County', '13', 'Harford'),
    ('MD', 'County', '14', 'Howard'),
    ('MD', 'County', '15', 'Kent'),
    ('MD', 'County', '16', 'Montgomery'),
    ('MD', 'County', '17', 'Prince George''s'),
    ('MD', 'County', '18', 'Queen Anne''s'),
    ('MD', 'County', '19', 'Saint Mary''s'),
    ('MD', 'County', '20', 'Somerset'),
    ('MD', 'County', '21', 'Talbot'),
    ('MD', 'County', '22', 'Washington'),
    ('MD', 'County', '23', 'Wicomico'),
    ('MD', 'County', '24', 'Worcester'),
    ('MD', 'County', '100', 'Cumberland | Town in Allegany'),
    ('MD', 'County', '101', 'Frostburg | Town in Allegany'),
    ('MD', 'County', '200', 'Annapolis | Town in Anne Arundel');

INSERT INTO "Enum Tables" VALUES
    ('PA', 'School District', '01110', 'Bermudian Springs'),
    ('PA', 'School District', '01305', 'Gettysburg Area'),
    ('PA', 'School District', '02060', 'Allegheny Valley'),
    ('PA', 'School District', '02745', 'Pittsburgh'),
    ('PA', 'School District', '06810', 'Reading'),
    ('PA', 'School District', '09130', 'Bristol Borough'),
    ('PA', 'School District', '21830', 'Mechanicsburg Area'),
    ('PA', 'School District', '22275', 'Harrisburg City'),
    ('PA', 'School District', '36400', 'Lancaster'),
    ('PA', 'School District', '51500', 'Philadelphia City');

INSERT INTO "Enum Tables" VALUES
    ('PR', 'Municipality', '1', 'Adjuntas'),
    ('PR', 'Municipality', '6', 'Añasco'),
    ('PR', 'Municipality', '11', 'Bayamón'),
    ('PR', 'Municipality', '17', 'Cataño'),
    ('PR', 'Municipality', '23', 'Comerío'),
    ('PR', 'Municipality', '45', 'Loíza'),
    ('PR', 'Municipality', '50', 'Mayagüez'),
    ('PR', 'Municipality', '56', 'Peñuelas'),
    ('PR', 'Municipality', '61', 'Río Grande'),
    ('PR', 'Municipality', '64', 'San Germán'),
    ('PR', 'Municipality', '66', 'San Juan');

-- A long one: each branch with each kind of work for each kind of customer, 10,000 in all.
INSERT INTO "Enum Tables"
WITH branch(code, name) AS (VALUES
    (11, 'Farming'), (21, 'Mining'), (22, 'Utilities'), (23, 'Construction'), (31, 'Food'),
    (32, 'Paper and printing'), (33, 'Metal'), (42, 'Furniture'), (44, 'Clothing'), (45, 'Books and toys'),
    (48, 'Transportation'), (49, 'Storage'), (51, 'Publishing'), (52, 'Insurance'), (53, 'Real estate'),
    (54, 'Engineering'), (56, 'Cleaning'), (61, 'Teaching'), (62, 'Health care'), (72, 'Lodging')),
work(code, name) AS (VALUES
    (1, 'advice'), (2, 'agency'), (3, 'appraisal'), (4, 'auction'), (5, 'brokerage'),
    (6, 'delivery'), (7, 'design'), (8, 'equipment'), (9, 'export'), (10, 'import'),
    (11, 'inspection'), (12, 'installation'), (13, 'maintenance'), (14, 'manufacture'), (15, 'planning'),
    (16, 'rental'), (17, 'repair'), (18, 'research'), (19, 'retail'), (20, 'services'),
    (21, 'supplies'), (22, 'testing'), (23, 'training'), (24, 'wholesale'), (25, 'not elsewhere classified')),
customer(code, name) AS (VALUES
    (1, 'banks'), (2, 'carriers'), (3, 'churches'), (4, 'clinics'), (5, 'clubs'),
    (6, 'contractors'), (7, 'dealers'), (8, 'exporters'), (9, 'factories'), (10, 'farms'),
    (11, 'governments'), (12, 'homes'), (13, 'hotels'), (14, 'museums'), (15, 'offices'),
    (16, 'restaurants'), (17, 'schools'), (18, 'shops'), (19, 'theaters'), (20, 'the public'))
SELECT 'US', 'Business Activity', CAST(branch.code * 10000 + work.code * 100 + customer.code AS text),
    branch.name || ': ' || work.name || ' for ' || customer.name
FROM branch CROSS JOIN work CROSS JOIN customer;

UPDATE "Enum Tables" SET "Enum Text" = replace("Enum Text", ' | ', char(13, 10));
