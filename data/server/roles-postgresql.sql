-- The two roles of a catalogue on PostgreSQL. Run it in the catalogue's database, behind
-- "commtest-cli catalogue create --server", as the user who made the catalogue; he needs the right to make roles.
-- It may run again.
DO $$
BEGIN
    IF NOT EXISTS (SELECT FROM pg_roles WHERE rolname = 'commtest_reader') THEN
        CREATE ROLE commtest_reader NOLOGIN;
    END IF;
    IF NOT EXISTS (SELECT FROM pg_roles WHERE rolname = 'commtest_importer') THEN
        CREATE ROLE commtest_importer NOLOGIN;
    END IF;
END
$$;

REVOKE CREATE ON SCHEMA public FROM PUBLIC;
GRANT USAGE ON SCHEMA public TO commtest_reader, commtest_importer;

-- Reads, polls, replays, and adds what it captures; changes and deletes nothing.
GRANT SELECT ON 仪表_类别, 仪表_名称, 仪表_参数, 仪表_芯片, 表格_设置, "表格-设置", 字符_替换, 通讯_仿真, 仪表参数
    TO commtest_reader;
GRANT INSERT ON 通讯_仿真 TO commtest_reader;

-- Does all this, imports, restores, copies, and changes recordings.
GRANT commtest_reader TO commtest_importer;
GRANT INSERT, UPDATE, DELETE ON 仪表_类别, 仪表_名称, 仪表_参数, 仪表_芯片, 表格_设置, "表格-设置", 字符_替换, 通讯_仿真
    TO commtest_importer;
GRANT USAGE, UPDATE ON ALL SEQUENCES IN SCHEMA public TO commtest_importer;
