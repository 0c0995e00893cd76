-- What the sample tables have no use for, added to them for the tests.
INSERT INTO "Enum Tables" VALUES
    -- Beyond ten characters the last ten count, and Null lets the rest of a row be.
    ('T1', 'Lengths', '7', 'Seven'),
    ('T1', 'Lengths', '10', 'Ten'),
    ('T1', 'Lengths', '100', 'A hundred'),
    ('T1', 'Lengths', '90000000005', 'Five, of eleven digits'),
    ('T1', 'Lengths', '10000000008', 'Eight, of eleven digits'),
    ('T1', 'Lengths', '', 'Nothing'),
    ('T1', 'Null', '1', NULL),
    ('T1', 'Null', '2', 'Not Null'),
    ('T1', 'Lines', '1', 'One |  | three | '),
    ('T1', 'Long', '1', 'x'),
    -- More than the Latin alphabet, more than 16 bits, and what a translated query might stumble on.
    ('T1', 'Letters', 'é', 'Ελλάδα, Україна, 日本, 🂡'),
    ('T1', 'Letters', '[a] & b', 'RIGHT(''x'', 1); -- "?" \n {d}'),
    ('T''1', 'Quoted', '1', 'One');
UPDATE "Enum Tables" SET "Enum Text" = replace("Enum Text", ' | ', char(13, 10));

-- A million characters: each doubling doubles.
WITH RECURSIVE doubled(text, times) AS (
    SELECT CAST('0123456789abcde ' AS text), 0 UNION ALL SELECT text || text, times + 1 FROM doubled WHERE times < 16)
UPDATE "Enum Tables" SET "Enum Text" = (SELECT text FROM doubled WHERE times = 16)
WHERE "State Code" = 'T1' AND "Table Name" = 'Long';
