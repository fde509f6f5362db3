<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="zh_CN">
<context>
    <name>Words</name>
    <message>
        <source>下次启动时的界面语言：%1</source>
        <translation>Language from the next start on: %1</translation>
    </message>
    <message>
        <source>--face 须是 chinese 或 english</source>
        <translation>--face takes chinese or english</translation>
    </message>
</context>
</TS>
