-- The two roles of a catalogue on SQL Server. Run it in the catalogue's database, behind
-- "commtest-cli catalogue create --server", as its owner. It has not run against such a server yet.
CREATE ROLE commtest_reader;
CREATE ROLE commtest_importer;

-- Reads, polls, replays, and adds what it captures; changes and deletes nothing.
GRANT SELECT ON SCHEMA::dbo TO commtest_reader;
GRANT INSERT ON dbo.通讯_仿真 TO commtest_reader;

-- Does all this, imports, restores, and changes recordings. A copy of a whole catalogue to the server brings its own
-- keys, which only the owner of the tables may.
GRANT SELECT, INSERT, UPDATE, DELETE ON SCHEMA::dbo TO commtest_importer;
