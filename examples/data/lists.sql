-- The lists that the example definitions fill combo fields from (DB=, TABLE=, LISTFIELD=,
-- VALUEFIELD=). lists.db beside it is made from this text and shipped, so that the examples run
-- from where they are; after a change here, make it again from the repository's root with
--   rm -f examples/data/lists.db && sqlite3 examples/data/lists.db < examples/data/lists.sql
-- A test checks that the two agree.

CREATE TABLE colours (
    id   INTEGER PRIMARY KEY,
    name TEXT NOT NULL
);
INSERT INTO colours (id, name) VALUES
    (1, 'Red'), (2, 'Orange'), (3, 'Yellow'), (4, 'Green'), (5, 'Blue'), (6, 'Violet');

CREATE TABLE countries (
    iso  TEXT PRIMARY KEY,
    name TEXT NOT NULL
);
INSERT INTO countries (iso, name) VALUES
    ('AT', 'Austria'), ('BE', 'Belgium'), ('DE', 'Germany'), ('DK', 'Denmark'),
    ('FR', 'France'), ('IT', 'Italy'), ('NL', 'Netherlands'), ('PL', 'Poland');

-- A table name with a blank: definition text names it upper-cased, and it is found all the same.
CREATE TABLE "Log Levels" (
    level INTEGER PRIMARY KEY,
    label TEXT NOT NULL
);
INSERT INTO "Log Levels" (level, label) VALUES
    (0, 'Quiet'), (1, 'Errors'), (2, 'Warnings'), (3, 'Information'), (4, 'Debugging');
