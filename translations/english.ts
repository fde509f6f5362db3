<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="zh_CN">
<context>
    <name>Words</name>
    <message>
        <source>串口不支持波特率 %1，实际为 %2，请换用别的波特率</source>
        <translation>The port does not support the baud rate %1 and has %2, please use another one</translation>
    </message>
    <message>
        <source>串口只在 5 个数据位时有 1.5 个停止位，实际为 2 个</source>
        <translation>The port has 1.5 stop bits with 5 data bits only, it has 2</translation>
    </message>
    <message>
        <source>；</source>
        <translation>; </translation>
    </message>
    <message>
        <source>程序 %1 没有锁住串口，也在读它，会取走应答，请先结束它</source>
        <translation>Program %1 has not locked the port and reads it, too: it takes replies away, please end it first</translation>
    </message>
    <message>
        <source>、</source>
        <translation>, </translation>
    </message>
    <message>
        <source>没有文件夹 %1</source>
        <translation>There is no folder %1</translation>
    </message>
    <message>
        <source>%1 是文件，不是文件夹</source>
        <translation>%1 is a file, no folder</translation>
    </message>
    <message>
        <source>没有进入文件夹 %1 的权限</source>
        <translation>No permission to enter the folder %1</translation>
    </message>
    <message>
        <source>没有在文件夹 %1 中建立文件的权限</source>
        <translation>No permission to make files in the folder %1</translation>
    </message>
    <message>
        <source>%1 是文件夹，不是文件</source>
        <translation>%1 is a folder, no file</translation>
    </message>
    <message>
        <source>没有读 %1 的权限</source>
        <translation>No permission to read %1</translation>
    </message>
    <message>
        <source>没有写 %1 的权限</source>
        <translation>No permission to write %1</translation>
    </message>
    <message>
        <source>磁盘已满</source>
        <translation>The disk is full</translation>
    </message>
    <message>
        <source>用户的磁盘配额已满</source>
        <translation>The user&apos;s disk quota is used up</translation>
    </message>
    <message>
        <source>文件已到系统允许的最大长度</source>
        <translation>The file is as long as the system allows</translation>
    </message>
    <message>
        <source>磁盘是只读的</source>
        <translation>The disk is read-only</translation>
    </message>
    <message>
        <source>磁盘读写出错</source>
        <translation>The disk has a read or write error</translation>
    </message>
    <message>
        <source>设备 %1 正被另一个程序使用。请先结束那个程序</source>
        <translation>Device %1 is in use by another program. Please end that program first</translation>
    </message>
    <message>
        <source>设备 %1 正被程序 %2 使用。请先结束那个程序</source>
        <translation>Device %1 is in use by program %2. Please end that program first</translation>
    </message>
    <message>
        <source>没有读写设备 %1 的权限。请管理员放开它的权限</source>
        <translation>No permission to read and write device %1. Please ask your administrator to grant it</translation>
    </message>
    <message>
        <source>没有读写设备 %1 的权限。请把用户加入 %2 组 (sudo usermod -aG %2 用户名)，重新登录后再试</source>
        <translation>No permission to read and write device %1. Please add the user to the group %2 (sudo usermod -aG %2 USER), log in anew and try again</translation>
    </message>
    <message>
        <source>设备 %1 不存在。请检查接线和设备名</source>
        <translation>There is no device %1. Please check the plug and the name of the device</translation>
    </message>
    <message>
        <source>%1 不是串口设备。请检查设备名</source>
        <translation>%1 is no serial device. Please check the name of the device</translation>
    </message>
    <message>
        <source>设备 %1 不支持串口设置 %2。请换用别的设置</source>
        <translation>Device %1 does not support the settings %2. Please use other ones</translation>
    </message>
    <message>
        <source>设备 %1 打不开: %2</source>
        <translation>Device %1 cannot be opened: %2</translation>
    </message>
    <message>
        <source>%1 (进程 %2)</source>
        <translation>%1 (process %2)</translation>
    </message>
    <message>
        <source>%1：%2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>串口设置 &quot;%1&quot; 无效。请写成 9600,N,8,1 的形式</source>
        <translation>The port settings &quot;%1&quot; are not valid. Please write them as 9600,N,8,1</translation>
    </message>
    <message>
        <source>本机没有第 %1 个串口。请接上串口，或指定设备: COM%1=设备</source>
        <translation>This machine has no port number %1. Please plug one in, or name a device: COM%1=DEVICE</translation>
    </message>
    <message>
        <source>COM%1 (%2) 已断开。请检查接线后重新开始</source>
        <translation>COM%1 (%2) is gone. Please check the plug, then start anew</translation>
    </message>
    <message>
        <source>没有写数据库文件的权限（%1）</source>
        <translation>No permission to write the database file (%1)</translation>
    </message>
    <message>
        <source>数据库文件已损坏（%1）</source>
        <translation>The database file is damaged (%1)</translation>
    </message>
    <message>
        <source>磁盘已满（%1）</source>
        <translation>The disk is full (%1)</translation>
    </message>
    <message>
        <source>磁盘读写出错（%1）</source>
        <translation>The disk has a read or write error (%1)</translation>
    </message>
    <message>
        <source>不支持数据库 %1，只支持 SQL Server 和 PostgreSQL</source>
        <translation>Database %1 is not supported, only SQL Server and PostgreSQL are</translation>
    </message>
    <message>
        <source>数据库文件不存在</source>
        <translation>The database file does not exist</translation>
    </message>
    <message>
        <source>是旧格式的桌面数据库，未作任何改动</source>
        <translation>It is a desktop database of an older format, nothing was changed</translation>
    </message>
    <message>
        <source>文件已存在</source>
        <translation>The file exists already</translation>
    </message>
    <message>
        <source>不能建立数据库文件，%1</source>
        <translation>The database file cannot be made: %1</translation>
    </message>
    <message>
        <source>数据库没有打开</source>
        <translation>The database is not open</translation>
    </message>
    <message>
        <source>仪表地址没有填写，仍为 %1</source>
        <translation>The address of the instrument is empty, still %1</translation>
    </message>
    <message>
        <source>在此新建</source>
        <translation>Create here</translation>
    </message>
    <message>
        <source>选择文件夹...</source>
        <translation>Choose folder...</translation>
    </message>
    <message>
        <source>不用目录继续</source>
        <translation>Go on without</translation>
    </message>
    <message>
        <source>仪表目录</source>
        <translation>Catalogue</translation>
    </message>
    <message>
        <source>没有打开仪表目录</source>
        <translation>No catalogue is open</translation>
    </message>
    <message>
        <source>备份时间</source>
        <translation>Made</translation>
    </message>
    <message>
        <source>大小</source>
        <translation>Size</translation>
    </message>
    <message>
        <source>内容</source>
        <translation>Holds</translation>
    </message>
    <message>
        <source>备份</source>
        <translation>Backups</translation>
    </message>
    <message>
        <source>没有可以恢复的备份！</source>
        <translation>There is no backup to restore!</translation>
    </message>
    <message>
        <source>每次导入之前自动备份目录，保留最近三份。</source>
        <translation>The catalogue is backed up before each import; the last three backups are kept.</translation>
    </message>
    <message>
        <source>确定要恢复原目录吗？</source>
        <translation>Restore the former catalogue?</translation>
    </message>
    <message>
        <source>恢复</source>
        <translation>Restore</translation>
    </message>
    <message>
        <source>仪表和参数；其它数据不变</source>
        <translation>instruments and parameters; other data stay as they are</translation>
    </message>
    <message>
        <source>现目录</source>
        <translation>Present</translation>
    </message>
    <message>
        <source>；先存为备份</source>
        <translation>; kept as a backup first</translation>
    </message>
    <message>
        <source>是(&amp;Y)</source>
        <translation>&amp;Yes</translation>
    </message>
    <message>
        <source>否(&amp;N)</source>
        <translation>&amp;No</translation>
    </message>
    <message>
        <source>已恢复 %1 的目录，恢复之前的存为 %2</source>
        <translation>Catalogue of %1 restored, the one before kept as %2</translation>
    </message>
    <message>
        <source>没有恢复，目录不变！</source>
        <translation>Not restored, the catalogue is unchanged!</translation>
    </message>
    <message>
        <source>修改值</source>
        <translation>modified value</translation>
    </message>
    <message>
        <source>修改值 %1</source>
        <translation>modified value %1</translation>
    </message>
    <message>
        <source>再按一次回车仍写入，Esc 放弃</source>
        <translation>Enter again writes, Esc leaves</translation>
    </message>
    <message>
        <source>%1：地址前的长度不是数字。请改正模板中的地址</source>
        <translation>%1: the length before an address is no number. Please correct the address in the template</translation>
    </message>
    <message>
        <source>已写 %1 行到 %2，现有 %3</source>
        <translation>Lines written to %2: %1, it now has %3</translation>
    </message>
    <message>
        <source>；模板第 %1 行有代码页 936 中没有的字符，已写成 ?</source>
        <translation>; template line %1 has characters that code page 936 lacks, written as ?</translation>
    </message>
    <message>
        <source>打开文件夹</source>
        <translation>Open folder</translation>
    </message>
    <message>
        <source>仅供查看</source>
        <translation>View only</translation>
    </message>
    <message>
        <source>%1 台仪表，%2 份资料</source>
        <translation>Instruments: %1, chip records: %2</translation>
    </message>
    <message>
        <source>计数已清零</source>
        <translation>Counters cleared</translation>
    </message>
    <message>
        <source>撤销</source>
        <translation>Undo</translation>
    </message>
    <message>
        <source>隐藏此列</source>
        <translation>Hide column</translation>
    </message>
    <message>
        <source>恢复列宽</source>
        <translation>Restore widths</translation>
    </message>
    <message>
        <source>名称含有 END</source>
        <translation>name holds END</translation>
    </message>
    <message>
        <source>&quot;%n&quot; 含有 END</source>
        <translation>&quot;%n&quot; holds END</translation>
    </message>
    <message>
        <source>这台仪表的参数到此为止，以下的行到 DEVICE 行之前都不导入</source>
        <translation>the parameters of this instrument end here, the lines up to the next DEVICE line are not imported</translation>
    </message>
    <message>
        <source>仪表名称含有 END</source>
        <translation>name of an instrument holds END</translation>
    </message>
    <message>
        <source>&quot;%n&quot; 含有 DEVICE 和 END</source>
        <translation>&quot;%n&quot; holds DEVICE and END</translation>
    </message>
    <message>
        <source>导入到此为止，以下的仪表都不导入</source>
        <translation>the import ends here, the instruments below are not imported</translation>
    </message>
    <message>
        <source>仪表之前没有 END</source>
        <translation>no END ahead of an instrument</translation>
    </message>
    <message>
        <source>&quot;%n&quot; 之前的仪表没有 END 行</source>
        <translation>the instrument ahead of &quot;%n&quot; has no END line</translation>
    </message>
    <message>
        <source>这一行成为那台仪表的参数，以下的参数也归它</source>
        <translation>this line becomes a parameter of that instrument, and so do the parameters below</translation>
    </message>
    <message>
        <source>参数之间的注释</source>
        <translation>remark among parameters</translation>
    </message>
    <message>
        <source>&quot;%n&quot; 是参数之间的注释</source>
        <translation>&quot;%n&quot; is a remark among parameters</translation>
    </message>
    <message>
        <source>成为一个参数</source>
        <translation>becomes a parameter</translation>
    </message>
    <message>
        <source>名称以地址开头</source>
        <translation>name begins with an address</translation>
    </message>
    <message>
        <source>行首的 &quot;%v&quot; 是四个十六进制字符，作为地址</source>
        <translation>&quot;%v&quot; at the start of the line is four hexadecimal characters and taken for the address</translation>
    </message>
    <message>
        <source>名称为空，这一行不导入</source>
        <translation>the name is empty, this line is not imported</translation>
    </message>
    <message>
        <source>没有地址</source>
        <translation>no address</translation>
    </message>
    <message>
        <source>&quot;%n&quot; 没有地址</source>
        <translation>&quot;%n&quot; has no address</translation>
    </message>
    <message>
        <source>导入时长度为空，地址为 0</source>
        <translation>imported with an empty length and the address 0</translation>
    </message>
    <message>
        <source>小数点不是十六进制数</source>
        <translation>decimal point is no hexadecimal number</translation>
    </message>
    <message>
        <source>&quot;%n&quot; 的小数点 &quot;%v&quot; 不是十六进制数</source>
        <translation>the decimal point &quot;%v&quot; of &quot;%n&quot; is no hexadecimal number</translation>
    </message>
    <message>
        <source>照原样导入，导入后列出名称</source>
        <translation>imported as it is, named behind the import</translation>
    </message>
    <message>
        <source>地址相同</source>
        <translation>same address</translation>
    </message>
    <message>
        <source>&quot;%n&quot; 的地址 %v 与 &quot;%o&quot; 相同</source>
        <translation>&quot;%n&quot; has the address %v of &quot;%o&quot;</translation>
    </message>
    <message>
        <source>两个参数都导入</source>
        <translation>both parameters are imported</translation>
    </message>
    <message>
        <source>地址重叠</source>
        <translation>overlapping addresses</translation>
    </message>
    <message>
        <source>&quot;%n&quot; 的地址 %v 与 &quot;%o&quot; 重叠</source>
        <translation>&quot;%n&quot; at address %v overlaps &quot;%o&quot;</translation>
    </message>
    <message>
        <source>属性没有意义</source>
        <translation>attribute without a meaning</translation>
    </message>
    <message>
        <source>&quot;%n&quot; 的属性 &quot;%v&quot; 不是由 R、W、S、D 组成</source>
        <translation>the attribute &quot;%v&quot; of &quot;%n&quot; is not made of R, W, S, D</translation>
    </message>
    <message>
        <source>上下限不是数</source>
        <translation>limit is no number</translation>
    </message>
    <message>
        <source>&quot;%n&quot; 的下限或上限 &quot;%v&quot; 不是数</source>
        <translation>the lower or upper limit &quot;%v&quot; of &quot;%n&quot; is no number</translation>
    </message>
    <message>
        <source>照原样导入，写入时不按它检查</source>
        <translation>imported as it is, a write is not checked against it</translation>
    </message>
    <message>
        <source>字段过多</source>
        <translation>too many fields</translation>
    </message>
    <message>
        <source>&quot;%n&quot; 的字段过多</source>
        <translation>&quot;%n&quot; has too many fields</translation>
    </message>
    <message>
        <source>多出的字段不导入</source>
        <translation>the fields beyond are not imported</translation>
    </message>
    <message>
        <source>名称超过 40 字节</source>
        <translation>name longer than 40 bytes</translation>
    </message>
    <message>
        <source>&quot;%n&quot; 超过 40 字节</source>
        <translation>&quot;%n&quot; is longer than 40 bytes</translation>
    </message>
    <message>
        <source>全部导入，导出时后面的列右移</source>
        <translation>imported whole, an export shifts the columns behind it to the right</translation>
    </message>
    <message>
        <source>没有这个协议代码</source>
        <translation>no such protocol code</translation>
    </message>
    <message>
        <source>&quot;%n&quot; 的编号以 %v 开头，没有这个协议代码</source>
        <translation>the code of &quot;%n&quot; begins with %v, there is no such protocol code</translation>
    </message>
    <message>
        <source>作为 TQ仪表协议 的仪表导入</source>
        <translation>imported as an instrument of TQ仪表协议</translation>
    </message>
    <message>
        <source>没有这个类别</source>
        <translation>no such class</translation>
    </message>
    <message>
        <source>&quot;%n&quot; 的类别 &quot;%v&quot; 目录中没有</source>
        <translation>the catalogue lacks the class &quot;%v&quot; of &quot;%n&quot;</translation>
    </message>
    <message>
        <source>类别和类别ID 都记为这两个字符</source>
        <translation>class and class number are these two characters</translation>
    </message>
    <message>
        <source>没有 TYPE 行</source>
        <translation>no TYPE line</translation>
    </message>
    <message>
        <source>&quot;%n&quot; 之后 30 行中没有 TYPE 行</source>
        <translation>no TYPE line in the 30 lines behind &quot;%n&quot;</translation>
    </message>
    <message>
        <source>第 30 行作为 TYPE 行，之前的行不导入</source>
        <translation>the 30th is taken for the TYPE line, the lines ahead of it are not imported</translation>
    </message>
    <message>
        <source>仪表名称相同</source>
        <translation>same name of instruments</translation>
    </message>
    <message>
        <source>仪表 &quot;%n&quot; 前面已有</source>
        <translation>instrument &quot;%n&quot; was there before</translation>
    </message>
    <message>
        <source>两台都导入，相邻时导出为一台</source>
        <translation>both are imported, neighbours are exported as one</translation>
    </message>
    <message>
        <source>不是代码页 936</source>
        <translation>not code page 936</translation>
    </message>
    <message>
        <source>有代码页 936 中没有的字节</source>
        <translation>there are bytes that code page 936 lacks</translation>
    </message>
    <message>
        <source>这些字节导入后是 U+FFFD</source>
        <translation>these bytes are imported as U+FFFD</translation>
    </message>
    <message>
        <source>可能是 UTF-8</source>
        <translation>perhaps UTF-8</translation>
    </message>
    <message>
        <source>文件像是没有标记的 UTF-8</source>
        <translation>the file looks like UTF-8 without a mark</translation>
    </message>
    <message>
        <source>按代码页 936 导入，汉字会成为别的字。请加上标记，或存为代码页 936</source>
        <translation>imported as code page 936, Chinese characters become other ones. Please add the mark, or save it in code page 936</translation>
    </message>
    <message>
        <source>编号不以数字开头</source>
        <translation>code does not begin with a digit</translation>
    </message>
    <message>
        <source>TYPE 行的编号不以数字开头</source>
        <translation>the code of the TYPE line does not begin with a digit</translation>
    </message>
    <message>
        <source>文件在仪表中结束</source>
        <translation>file ends within an instrument</translation>
    </message>
    <message>
        <source>文件在一台仪表中结束，没有 END 行</source>
        <translation>the file ends within an instrument, without an END line</translation>
    </message>
    <message>
        <source>行超过 64 KB</source>
        <translation>line longer than 64 KB</translation>
    </message>
    <message>
        <source>这一行超过 64 KB</source>
        <translation>this line is longer than 64 KB</translation>
    </message>
    <message>
        <source>含有 NUL 字节</source>
        <translation>holds a NUL byte</translation>
    </message>
    <message>
        <source>这一行含有 NUL 字节</source>
        <translation>this line holds a NUL byte</translation>
    </message>
    <message>
        <source>是 UTF-16</source>
        <translation>UTF-16</translation>
    </message>
    <message>
        <source>文件是 UTF-16</source>
        <translation>the file is UTF-16</translation>
    </message>
    <message>
        <source>导入在这里出错结束，目录不改变</source>
        <translation>the import fails here, the catalogue is unchanged</translation>
    </message>
    <message>
        <source>照原样导入</source>
        <translation>imported as it is</translation>
    </message>
    <message>
        <source>不是 UTF-8 文字</source>
        <translation>it is no UTF-8 text</translation>
    </message>
    <message>
        <source>没有文件头</source>
        <translation>there is no head of the file</translation>
    </message>
    <message>
        <source>缺少 &quot;%&quot;</source>
        <translation>&quot;%&quot; is missing</translation>
    </message>
    <message>
        <source>不认识 &quot;%&quot;</source>
        <translation>&quot;%&quot; is not known</translation>
    </message>
    <message>
        <source>&quot;%&quot; 出现两次</source>
        <translation>&quot;%&quot; is there twice</translation>
    </message>
    <message>
        <source>&quot;%&quot; 的值不对</source>
        <translation>the value of &quot;%&quot; is wrong</translation>
    </message>
    <message>
        <source>文件格式的版本不是 1</source>
        <translation>the version of the format is not 1</translation>
    </message>
    <message>
        <source>不是一个 JSON 对象</source>
        <translation>it is no JSON object</translation>
    </message>
    <message>
        <source>说明 %1 下有 %2 条已删除，应答相同的不再存入</source>
        <translation>Note %1 has deleted exchanges (%2), equal replies are not stored again</translation>
    </message>
    <message>
        <source>%1；此说明下有 %2 条已删除，应答相同的不再存入</source>
        <translation>%1; this note has deleted exchanges (%2), equal replies are not stored again</translation>
    </message>
    <message>
        <source>已恢复 %1 条：%2，%3</source>
        <translation>Restored, exchanges: %1, of %2, %3</translation>
    </message>
    <message>
        <source>编辑时通讯已停止，回车写入并继续</source>
        <translation>Stopped for editing, Enter writes and goes on</translation>
    </message>
    <message>
        <source>已清空通讯记录</source>
        <translation>Record emptied</translation>
    </message>
    <message>
        <source>目录里没有仪表</source>
        <translation>Catalogue is empty</translation>
    </message>
    <message>
        <source>把 TQ.ini 放进程序文件夹后导入</source>
        <translation>Put TQ.ini into the program folder, then import it</translation>
    </message>
    <message>
        <source>恢复备份...</source>
        <translation>Restore backup...</translation>
    </message>
    <message>
        <source>没有录制的数据</source>
        <translation>Nothing recorded</translation>
    </message>
    <message>
        <source>勾选 数据采集 并开始通讯，
每一种应答存一条</source>
        <translation>Tick Data collection and press Run:
one exchange is stored for each different reply</translation>
    </message>
    <message>
        <source>开始采集</source>
        <translation>Start capture</translation>
    </message>
    <message>
        <source>导入录制</source>
        <translation>Import recording</translation>
    </message>
    <message>
        <source>没有通讯记录</source>
        <translation>No record</translation>
    </message>
    <message>
        <source>选定仪表后按 F5 开始通讯，收发的帧显示在这里</source>
        <translation>Choose an instrument and press F5: the frames sent and received are shown here</translation>
    </message>
    <message>
        <source>没有换算过程</source>
        <translation>No conversion</translation>
    </message>
    <message>
        <source>单击一个数值，这里说明它怎样得来</source>
        <translation>Click a value: how it came about is explained here</translation>
    </message>
    <message>
        <source>没有找到串口</source>
        <translation>No port found</translation>
    </message>
    <message>
        <source>插入转换器后再打开列表，
或写 COM1=/dev/ttyS0 指定设备</source>
        <translation>Plug in an adapter and open the list again,
or type COM1=/dev/ttyS0 for a device</translation>
    </message>
    <message>
        <source>重新查找</source>
        <translation>Look again</translation>
    </message>
    <message>
        <source>错误记录</source>
        <translation>Error record</translation>
    </message>
    <message>
        <source>通讯进行中，停止后可查看</source>
        <translation>Running, shown after the stop</translation>
    </message>
    <message>
        <source>停止时自动刷新</source>
        <translation>It is loaded anew when polling stops</translation>
    </message>
    <message>
        <source>未勾选 保存错误记录</source>
        <translation>Errors are not kept</translation>
    </message>
    <message>
        <source>勾选后，出错的应答记入 ErrorComm.ini</source>
        <translation>Tick store error record: faulty replies then go into ErrorComm.ini</translation>
    </message>
    <message>
        <source>勾选</source>
        <translation>Tick</translation>
    </message>
    <message>
        <source>没有错误记录</source>
        <translation>No errors</translation>
    </message>
    <message>
        <source>勾选 保存错误记录 以来没有出错</source>
        <translation>None since store error record was ticked</translation>
    </message>
    <message>
        <source>ErrorComm.ini 已清空，原文件存为 %1</source>
        <translation>ErrorComm.ini emptied, the former file kept as %1</translation>
    </message>
    <message>
        <source>确定要清空 ErrorComm.ini 吗？原文件会另存在同一文件夹里，保留最近三份。</source>
        <translation>Empty ErrorComm.ini? The former file is kept in the same folder, the last three of them.</translation>
    </message>
    <message>
        <source>%1 没有填写</source>
        <translation>%1 is empty</translation>
    </message>
    <message>
        <source>%1 %2 超出范围</source>
        <translation>%1 %2 is out of range</translation>
    </message>
    <message>
        <source>%1 %2 不是串口</source>
        <translation>%1 %2 is no port</translation>
    </message>
    <message>
        <source>%1 %2 不是数值</source>
        <translation>%1 %2 is no number</translation>
    </message>
    <message>
        <source>%1 已取消，没有启用。需要时请重新勾选</source>
        <translation>%1 was cancelled and is not on. Tick it again where it is needed</translation>
    </message>
    <message>
        <source>所填的内容太短或不完整，请补全后重试</source>
        <translation>An entry is too short or incomplete. Please complete it and try again</translation>
    </message>
    <message>
        <source>请改为较小的数值后重试</source>
        <translation>Please enter a smaller number and try again</translation>
    </message>
    <message>
        <source>有一个数值超出了范围，请检查所填的数值后重试</source>
        <translation>A number is out of range. Please check the entries and try again</translation>
    </message>
    <message>
        <source>所要的一项不在表中，请重新选择仪表后重试</source>
        <translation>What was asked for is not in the table. Please choose the instrument anew and try again</translation>
    </message>
    <message>
        <source>请更正后重试</source>
        <translation>Please correct it and try again</translation>
    </message>
    <message>
        <source>有一处所填的不是数值，请检查后重试</source>
        <translation>An entry is no number. Please check the entries and try again</translation>
    </message>
    <message>
        <source>文件没有打开或不能写入，请检查程序文件夹能否写入、磁盘是否已满</source>
        <translation>A file is not open or cannot be written. Please check whether the program folder can be written and whether the disk is full</translation>
    </message>
    <message>
        <source>程序文件夹里没有这个文件，请放回后重试</source>
        <translation>The program folder lacks this file. Please put it back and try again</translation>
    </message>
    <message>
        <source>文件不完整，请换用完整的文件后重试</source>
        <translation>The file is incomplete. Please use a complete one and try again</translation>
    </message>
    <message>
        <source>程序文件夹里没有所要的文件夹，请建立后重试</source>
        <translation>The program folder lacks the folder that is needed. Please make it and try again</translation>
    </message>
    <message>
        <source>请检查目录文件是否完好，有没有被其它程序占用</source>
        <translation>Please check whether the catalogue file is sound and not in use by another program</translation>
    </message>
    <message>
        <source>请重试；仍然出错时请重新启动程序</source>
        <translation>Please try again; if it fails again, please start the program anew</translation>
    </message>
    <message>
        <source>下次启动时的界面语言：%1</source>
        <translation>Language from the next start on: %1</translation>
    </message>
    <message>
        <source>筛选名称、地址、属性</source>
        <translation>Filter name, address, attribute</translation>
    </message>
    <message>
        <source>筛选</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>第 %1 步，%2，已完成</source>
        <translation>Step %1, %2, done</translation>
    </message>
    <message>
        <source>第 %1 步，%2</source>
        <translation>Step %1, %2</translation>
    </message>
    <message>
        <source>选串口</source>
        <translation>Choose port</translation>
    </message>
    <message>
        <source>选仪表</source>
        <translation>Choose instrument</translation>
    </message>
    <message>
        <source>按 F5 开始通讯</source>
        <translation>Press F5</translation>
    </message>
    <message>
        <source>第一次通讯</source>
        <translation>First steps</translation>
    </message>
    <message>
        <source>在左侧选协议、名称，填仪表地址
不知道地址时可用 仪表搜索</source>
        <translation>Protocol, name and address at the left.
仪表搜索 finds an unknown address</translation>
    </message>
    <message>
        <source>收发的帧显示在这里，数值填入上表
单击 修改值 一格即可写入参数</source>
        <translation>Frames are shown here, values in the table.
A click on a modified value writes it</translation>
    </message>
    <message>
        <source>用模拟仪表试一试</source>
        <translation>Try a simulated one</translation>
    </message>
    <message>
        <source>接一台模拟仪表到 COM1 并开始通讯，
可读可写，随时可停</source>
        <translation>Puts a simulated instrument on COM1
and polls it: to read, write and stop</translation>
    </message>
    <message>
        <source>手边没有仪表?</source>
        <translation>No instrument at hand?</translation>
    </message>
    <message>
        <source>%1：没有找到串口
插入转换器后再打开列表</source>
        <translation>%1: no port found
Plug in an adapter and open the list again</translation>
    </message>
    <message>
        <source>%1 — %2
%3，须与仪表一致</source>
        <translation>%1 — %2
%3, as the instrument has it</translation>
    </message>
    <message>
        <source>正在修改，暂不跟随</source>
        <translation>being edited, not following</translation>
    </message>
    <message>
        <source>指针在表内，暂不跟随</source>
        <translation>pointer over the grid, not following</translation>
    </message>
    <message>
        <source>刚滚动过，暂不跟随</source>
        <translation>just scrolled, not following</translation>
    </message>
    <message>
        <source>表格跟随正在读取的参数</source>
        <translation>The grid follows the parameter that is read</translation>
    </message>
    <message>
        <source>跟随</source>
        <translation>Follow</translation>
    </message>
    <message>
        <source>，</source>
        <translation>, </translation>
    </message>
    <message>
        <source>，降序</source>
        <translation>, descending</translation>
    </message>
    <message>
        <source>，升序</source>
        <translation>, ascending</translation>
    </message>
    <message>
        <source>参数表</source>
        <translation>Parameters</translation>
    </message>
    <message>
        <source>仪表清单</source>
        <translation>Instruments</translation>
    </message>
    <message>
        <source>演示数据</source>
        <translation>Recordings</translation>
    </message>
    <message>
        <source>芯片清单</source>
        <translation>Chip records</translation>
    </message>
    <message>
        <source>按此列排序</source>
        <translation>Sort by this column</translation>
    </message>
    <message>
        <source>没有数据</source>
        <translation>No data</translation>
    </message>
    <message>
        <source>使用说明</source>
        <translation>Help</translation>
    </message>
    <message>
        <source>采用</source>
        <translation>Take over</translation>
    </message>
    <message>
        <source>导出 CSV</source>
        <translation>Export CSV</translation>
    </message>
    <message>
        <source>搜索结果</source>
        <translation>Search hits</translation>
    </message>
    <message numerus="yes">
        <source>搜索结果 %1 台</source>
        <translation>
            <numerusform>Hits: %1</numerusform>
            <numerusform>Hits: %1</numerusform>
        </translation>
    </message>
    <message>
        <source>，双击采用</source>
        <translation>, double click takes one over</translation>
    </message>
    <message>
        <source>搜索进行中，停止后可采用</source>
        <translation>Searching: a hit can be taken over after the stop</translation>
    </message>
    <message>
        <source>已采用：地址 %1，%2 波特</source>
        <translation>Taken over: address %1, %2 baud</translation>
    </message>
    <message>
        <source>导出搜索结果</source>
        <translation>Export search hits</translation>
    </message>
    <message>
        <source>搜索结果.csv</source>
        <translation>search-hits.csv</translation>
    </message>
    <message>
        <source>没有导出：%1，%2</source>
        <translation>Not exported: %1, %2</translation>
    </message>
    <message numerus="yes">
        <source>已导出 %1 行：%2</source>
        <translation>
            <numerusform>%1 line exported: %2</numerusform>
            <numerusform>%1 lines exported: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>地址</source>
        <translation>Address</translation>
    </message>
    <message>
        <source>波特率</source>
        <translation>Baud rate</translation>
    </message>
    <message>
        <source>应答 ms</source>
        <translation>Reply ms</translation>
    </message>
    <message>
        <source>首字节</source>
        <translation>First bytes</translation>
    </message>
    <message>
        <source>校验字</source>
        <translation>Check word</translation>
    </message>
    <message>
        <source>正确</source>
        <translation>right</translation>
    </message>
    <message>
        <source>错误</source>
        <translation>wrong</translation>
    </message>
    <message>
        <source>无</source>
        <translation>none</translation>
    </message>
    <message>
        <source>未判断</source>
        <translation>not judged</translation>
    </message>
    <message>
        <source>地址 %1，%2 波特</source>
        <translation>Address %1, %2 baud</translation>
    </message>
    <message>
        <source>，%1 毫秒</source>
        <translation>, %1 ms</translation>
    </message>
    <message>
        <source>，校验字%1</source>
        <translation>, check word %1</translation>
    </message>
    <message>
        <source>文件</source>
        <translation>File</translation>
    </message>
    <message>
        <source>%1，%2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>，%1 处问题</source>
        <translation>, findings: %1</translation>
    </message>
    <message>
        <source>；文件里没有仪表，导入后目录是空的</source>
        <translation>; the file has no instrument, the catalogue will be empty</translation>
    </message>
    <message>
        <source>原目录</source>
        <translation>Former</translation>
    </message>
    <message>
        <source>；先存为 通讯数据.mdb.bak，保留最近三份</source>
        <translation>; kept as 通讯数据.mdb.bak first, the last three of them</translation>
    </message>
    <message>
        <source>类别</source>
        <translation>Kind</translation>
    </message>
    <message>
        <source>处数</source>
        <translation>Count</translation>
    </message>
    <message>
        <source>结果</source>
        <translation>Outcome</translation>
    </message>
    <message>
        <source>问题类别</source>
        <translation>Kinds of findings</translation>
    </message>
    <message>
        <source>前 %1 处</source>
        <translation>First %1</translation>
    </message>
    <message>
        <source>%1 处</source>
        <translation>Findings: %1</translation>
    </message>
    <message>
        <source>位置</source>
        <translation>Place</translation>
    </message>
    <message>
        <source>原文</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>说明</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>问题</source>
        <translation>Findings</translation>
    </message>
    <message>
        <source>保存全部问题...</source>
        <translation>Save all...</translation>
    </message>
    <message>
        <source>出错</source>
        <translation>Errors</translation>
    </message>
    <message>
        <source>%1 处小数点不是数，均已照原样存入</source>
        <translation>Decimal points that are no number: %1, stored as they are</translation>
    </message>
    <message>
        <source>导入</source>
        <translation>Imported</translation>
    </message>
    <message>
        <source>，用时 %1 秒</source>
        <translation>, in %1 s</translation>
    </message>
    <message>
        <source>恢复原目录...</source>
        <translation>Restore former...</translation>
    </message>
    <message>
        <source>确定</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>没有追加完。</source>
        <translation>Not all was appended. </translation>
    </message>
    <message>
        <source>正在追加</source>
        <translation>appending</translation>
    </message>
    <message>
        <source>已追加 %1，现有 %2</source>
        <translation>%1 appended, it now has %2</translation>
    </message>
    <message>
        <source>问题已存入文件</source>
        <translation>Findings saved</translation>
    </message>
    <message>
        <source>问题没有存入文件：</source>
        <translation>Findings not saved: </translation>
    </message>
    <message>
        <source>不能导入，目录不变！</source>
        <translation>Cannot import, the catalogue is unchanged!</translation>
    </message>
    <message>
        <source>保存全部问题</source>
        <translation>Save all findings</translation>
    </message>
    <message>
        <source>TQ.ini 的问题.txt</source>
        <translation>findings-in-TQ.ini.txt</translation>
    </message>
    <message>
        <source>文本文件 (*.txt)</source>
        <translation>Text files (*.txt)</translation>
    </message>
    <message>
        <source>正在导入参数地址表，完成或取消后可用</source>
        <translation>The parameter list is being imported; available when that is done or cancelled</translation>
    </message>
    <message>
        <source>导入进度</source>
        <translation>Import progress</translation>
    </message>
    <message>
        <source>正在导入 %1</source>
        <translation>Importing %1</translation>
    </message>
    <message>
        <source>导出进度</source>
        <translation>Export progress</translation>
    </message>
    <message>
        <source>正在导出 %1</source>
        <translation>Exporting %1</translation>
    </message>
    <message>
        <source>没有导入，目录不变！</source>
        <translation>Not imported, the catalogue is unchanged!</translation>
    </message>
    <message>
        <source>OutTQ.ini 没有追加完：</source>
        <translation>OutTQ.ini was not appended to the end: </translation>
    </message>
    <message>
        <source>已导入 %1</source>
        <translation>Imported: %1</translation>
    </message>
    <message>
        <source>确定要取消导入吗？目录不变。</source>
        <translation>Cancel the import? The catalogue stays as it was.</translation>
    </message>
    <message>
        <source>导入已取消，目录不变</source>
        <translation>Import cancelled, the catalogue is unchanged</translation>
    </message>
    <message>
        <source>OutTQ.ini 还没有追加完，现在退出会缺少一部分。确定要退出吗？</source>
        <translation>OutTQ.ini is still being appended to; a part will be missing. Quit all the same?</translation>
    </message>
    <message>
        <source>正在导入参数地址表，现在退出则取消导入，目录不变。确定要退出吗？</source>
        <translation>The parameter list is being imported; to quit cancels that and leaves the catalogue as it was. Quit?</translation>
    </message>
    <message>
        <source>检查进度</source>
        <translation>Check progress</translation>
    </message>
    <message>
        <source>正在检查 %1</source>
        <translation>Checking %1</translation>
    </message>
    <message>
        <source>仪表</source>
        <translation>Instrument</translation>
    </message>
    <message>
        <source>参数</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>剩余约</source>
        <translation>Left</translation>
    </message>
    <message>
        <source>行</source>
        <translation>Row</translation>
    </message>
    <message>
        <source>%1 第 %2 行</source>
        <translation>%1 line %2</translation>
    </message>
    <message>
        <source>。</source>
        <translation>. </translation>
    </message>
    <message>
        <source>文件在一台仪表中结束。</source>
        <translation>The file ends within an instrument. </translation>
    </message>
    <message>
        <source>应为数字的字符不是数字。请改正编号或地址</source>
        <translation>Characters that should be digits are none. Please correct the code or the address</translation>
    </message>
    <message>
        <source>没有这个文件。请把它放进程序文件夹</source>
        <translation>There is no such file. Please put it into the program folder</translation>
    </message>
    <message>
        <source>。请结束正在使用目录的其他程序，检查磁盘空间和权限</source>
        <translation>. Please end other programs that use the catalogue, and check disk space and permissions</translation>
    </message>
    <message>
        <source>文件不能读写。请检查磁盘空间和权限，以及是否已在别处打开</source>
        <translation>The file cannot be read or written. Please check disk space and permissions, and whether it is open elsewhere</translation>
    </message>
    <message>
        <source>请改正编号</source>
        <translation>Please correct the code</translation>
    </message>
    <message>
        <source>请补上 END 行</source>
        <translation>Please add the END line</translation>
    </message>
    <message>
        <source>请存为代码页 936 或带标记的 UTF-8 文本</source>
        <translation>Please save it as text in code page 936, or in UTF-8 with a mark</translation>
    </message>
    <message>
        <source>%1：%2。%3</source>
        <translation>%1: %2. %3</translation>
    </message>
    <message numerus="yes">
        <source>%1 台仪表</source>
        <translation>
            <numerusform>%1 instrument</numerusform>
            <numerusform>%1 instruments</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 个参数</source>
        <translation>
            <numerusform>%1 parameter</numerusform>
            <numerusform>%1 parameters</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 字节</source>
        <translation>%1 bytes</translation>
    </message>
    <message>
        <source>--port 须写成 COM1=设备 的形式</source>
        <translation>--port is to be written as COM1=DEVICE</translation>
    </message>
    <message>
        <source>与串口上的工业仪表通讯：轮询、修改参数、记录。</source>
        <translation>Talks to industrial instruments on a serial line: polls them, sets parameters, keeps records.</translation>
    </message>
    <message>
        <source>界面，默认为上次选定的。</source>
        <translation>The face, by default the one chosen last.</translation>
    </message>
    <message>
        <source>程序文件夹，目录文件 通讯数据.mdb 在其中。</source>
        <translation>The program folder, with the catalogue 通讯数据.mdb in it.</translation>
    </message>
    <message>
        <source>文件夹</source>
        <translation>folder</translation>
    </message>
    <message>
        <source>设置文件，默认为用户的设置。</source>
        <translation>The settings file, by default the user&apos;s settings.</translation>
    </message>
    <message>
        <source>串口的设备，可以多次给出。</source>
        <translation>The device of a port, may be given several times.</translation>
    </message>
    <message>
        <source>COM1=设备</source>
        <translation>COM1=device</translation>
    </message>
    <message>
        <source>在 COM1 上接一台模拟仪表。</source>
        <translation>Puts a simulated instrument on COM1.</translation>
    </message>
    <message>
        <source>--face 须是 chinese 或 english</source>
        <translation>--face takes chinese or english</translation>
    </message>
    <message>
        <source>程序文件夹不能建立，请用 --folder 指定另一个文件夹。</source>
        <translation>The program folder cannot be made. Please name another one by --folder.</translation>
    </message>
    <message>
        <source>欢迎使用：按三步开始，F1 看使用说明</source>
        <translation>Welcome: three steps to begin, F1 for help</translation>
    </message>
    <message>
        <source>没有仪表目录</source>
        <translation>No catalogue</translation>
    </message>
    <message>
        <source>通讯需要先选定一台仪表</source>
        <translation>Polling needs an instrument to be chosen</translation>
    </message>
    <message>
        <source>打开目录</source>
        <translation>Open catalogue</translation>
    </message>
    <message>
        <source>选择文件夹</source>
        <translation>Choose folder</translation>
    </message>
    <message>
        <source>上次的仪表：%1，%2</source>
        <translation>The last instrument: %1, %2</translation>
    </message>
    <message>
        <source>%1。可以选择已有目录所在的文件夹；在此新建时，原文件改名保留。</source>
        <translation>%1. Choose the folder of an existing catalogue; if one is created here, the former file is kept under another name. </translation>
    </message>
    <message>
        <source>文件不存在。可以在这里新建一个带示例仪表的目录，或选择已有目录所在的文件夹。</source>
        <translation>There is no such file. Create a catalogue with sample instruments here, or choose the folder of an existing one. </translation>
    </message>
    <message>
        <source>上次选定的协议和仪表会保留。</source>
        <translation>The protocol and the instrument chosen last are kept.</translation>
    </message>
    <message>
        <source>原文件存为 %1</source>
        <translation>The former file is kept as %1</translation>
    </message>
    <message>
        <source>提示</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>%1 秒</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>清除筛选</source>
        <translation>Clear filter</translation>
    </message>
    <message>
        <source>没有符合“%1”的参数</source>
        <translation>No parameter fits “%1”</translation>
    </message>
    <message>
        <source>没有符合“%1”的仪表</source>
        <translation>No instrument fits “%1”</translation>
    </message>
    <message>
        <source>没有打开仪表目录：%1</source>
        <translation>No catalogue is open: %1</translation>
    </message>
    <message>
        <source>%1 较长，只显示最后 1 MB</source>
        <translation>%1 is long, only its last 1 MB is shown</translation>
    </message>
    <message>
        <source>串口已断开,通讯停止！</source>
        <translation>The port was lost, polling stopped!</translation>
    </message>
    <message>
        <source>更新程序不能启动！</source>
        <translation>The update program cannot be started!</translation>
    </message>
    <message>
        <source>%1 不存在或不能运行。现在继续使用本版本，请联系管理员更新</source>
        <translation>%1 is missing or cannot be run. This version goes on for now; please ask your administrator for the update</translation>
    </message>
    <message>
        <source>仪表搜索：</source>
        <translation>Search: </translation>
    </message>
    <message>
        <source>操作 %1</source>
        <translation>Operation %1</translation>
    </message>
    <message>
        <source>操作码 %1</source>
        <translation>Operation code %1</translation>
    </message>
    <message>
        <source>不是串口，未采用</source>
        <translation>No port, not taken</translation>
    </message>
    <message>
        <source>不在</source>
        <translation>absent</translation>
    </message>
    <message>
        <source>其它程序使用</source>
        <translation>in use</translation>
    </message>
    <message>
        <source>可输入 COM9=/dev/ttyS3 指定设备</source>
        <translation>Type COM9=/dev/ttyS3 for a device</translation>
    </message>
    <message>
        <source>继续</source>
        <translation>Continue</translation>
    </message>
    <message>
        <source>COM%1 已恢复</source>
        <translation>COM%1 is back</translation>
    </message>
    <message>
        <source>复制</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>全选</source>
        <translation>Select all</translation>
    </message>
    <message>
        <source>通讯记录</source>
        <translation>Record</translation>
    </message>
    <message>
        <source>数据转换过程</source>
        <translation>Conversion</translation>
    </message>
    <message>
        <source>导出录制</source>
        <translation>Export recording</translation>
    </message>
    <message>
        <source>录制 (*.jsonl)</source>
        <translation>Recordings (*.jsonl)</translation>
    </message>
    <message>
        <source>没有导出：%1</source>
        <translation>Not exported: %1</translation>
    </message>
    <message>
        <source>没有导出：列表中的这个录制已不存在</source>
        <translation>Not exported: this recording of the list is gone</translation>
    </message>
    <message>
        <source>已导出 %1 条：%2</source>
        <translation>Exported to %2, exchanges: %1</translation>
    </message>
    <message numerus="yes">
        <source>%1 条</source>
        <translation>
            <numerusform>%1 exchange</numerusform>
            <numerusform>%1 exchanges</numerusform>
        </translation>
    </message>
    <message>
        <source>，其中已删除 %1</source>
        <translation>, of these deleted: %1</translation>
    </message>
    <message>
        <source>录制 (*.jsonl);;所有文件 (*)</source>
        <translation>Recordings (*.jsonl);;All files (*)</translation>
    </message>
    <message>
        <source>%1 第 %2 行：%3</source>
        <translation>%1 line %2: %3</translation>
    </message>
    <message>
        <source>没有导入，演示数据不变！</source>
        <translation>Not imported, the recordings are unchanged!</translation>
    </message>
    <message>
        <source>确定要加入已有的录制吗？</source>
        <translation>Add to the existing recording?</translation>
    </message>
    <message>
        <source>现有</source>
        <translation>Present</translation>
    </message>
    <message>
        <source>加入</source>
        <translation>Adds</translation>
    </message>
    <message>
        <source>%1；另有 %2已有，不再加入</source>
        <translation>%1; known already and not added: %2</translation>
    </message>
    <message>
        <source>已导入 %1，%2已有：%3，%4</source>
        <translation>Imported %1, known already %2: %3, %4</translation>
    </message>
    <message>
        <source>数据演示：尚未选定录制</source>
        <translation>Replay: none chosen</translation>
    </message>
    <message>
        <source>去选定</source>
        <translation>Choose</translation>
    </message>
    <message>
        <source>数据演示，未接仪表</source>
        <translation>Replay, no instrument attached</translation>
    </message>
    <message>
        <source>第 %1 / %2 条</source>
        <translation>exchange %1 / %2</translation>
    </message>
    <message>
        <source>采集</source>
        <translation>Capture</translation>
    </message>
    <message>
        <source> 暂停，正在导入</source>
        <translation> paused for the import</translation>
    </message>
    <message>
        <source> 新 %1 已有 %2</source>
        <translation> new %1 known %2</translation>
    </message>
    <message>
        <source>导出录制......</source>
        <translation>Export recording......</translation>
    </message>
    <message>
        <source>导入录制......</source>
        <translation>Import recording......</translation>
    </message>
    <message>
        <source>数据演示：请双击选定录制，再按 F5</source>
        <translation>Replay: double click a recording, then press F5</translation>
    </message>
    <message>
        <source>%1:%2：%3；%4</source>
        <translation>%1:%2: %3; %4</translation>
    </message>
    <message>
        <source> (未勾选)</source>
        <translation> (unticked)</translation>
    </message>
    <message>
        <source>已完成</source>
        <translation>Done</translation>
    </message>
    <message>
        <source>已发现</source>
        <translation>Found</translation>
    </message>
    <message>
        <source>%1 台</source>
        <translation>%1</translation>
    </message>
    <message>
        <source>停止搜索</source>
        <translation>Stop search</translation>
    </message>
    <message>
        <source>恢复搜索前的设置</source>
        <translation>Restore settings</translation>
    </message>
    <message>
        <source>搜索进度</source>
        <translation>Search progress</translation>
    </message>
    <message>
        <source>正在搜索</source>
        <translation>Searching</translation>
    </message>
    <message>
        <source>搜索中止：操作码 %1，间隔 %2 ms，停在地址 %3、%4 波特</source>
        <translation>Search broken off: operation %1, interval %2 ms, at address %3, %4 baud</translation>
    </message>
    <message>
        <source>ASCii码 %1&lt;br&gt;十六进制 %2</source>
        <translation>Ascii %1&lt;br&gt;Hex %2</translation>
    </message>
    <message>
        <source>模拟仪表程序已退出</source>
        <translation>The program of the simulated instrument has ended</translation>
    </message>
    <message>
        <source>模拟仪表没有按时就绪</source>
        <translation>The simulated instrument was not ready in time</translation>
    </message>
    <message>
        <source>这个协议没有仪表，没有可导出的参数地址表</source>
        <translation>This protocol has no instrument, there is no parameter list to export</translation>
    </message>
    <message>
        <source>导出已取消，原文件未动</source>
        <translation>Export cancelled, the former file is untouched</translation>
    </message>
    <message>
        <source>已导出 %1</source>
        <translation>Exported: %1</translation>
    </message>
    <message>
        <source>已导出 %1，没有可以打开它的程序</source>
        <translation>Exported: %1, there is no program to open it</translation>
    </message>
    <message>
        <source>参数地址表没有导出！</source>
        <translation>The parameter lists were not exported!</translation>
    </message>
    <message>
        <source>当前参数地址表没有导出！</source>
        <translation>The present parameter list was not exported!</translation>
    </message>
    <message>
        <source>结果在 %1</source>
        <translation>The result is in %1</translation>
    </message>
    <message>
        <source>确定要取消导出吗？已写好的文件保留。</source>
        <translation>Cancel the export? Files that are written are kept.</translation>
    </message>
    <message>
        <source>正在导出参数地址表，现在退出则其余的不再导出。确定要退出吗？</source>
        <translation>Parameter lists are being exported; to quit leaves out the rest. Quit?</translation>
    </message>
    <message>
        <source>正在导出参数地址表，完成或取消后可用</source>
        <translation>Parameter lists are being exported; available when that is done or cancelled</translation>
    </message>
    <message>
        <source>正在导出</source>
        <translation>Exporting</translation>
    </message>
    <message>
        <source>已写</source>
        <translation>Written</translation>
    </message>
    <message>
        <source>失败</source>
        <translation>Failed</translation>
    </message>
    <message>
        <source>已导出 %1 台，失败 %2 台。</source>
        <translation>Exported %1, failed %2.</translation>
    </message>
    <message>
        <source>已取消，其余 %1 台没有导出。</source>
        <translation> Cancelled, not exported: %1.</translation>
    </message>
    <message>
        <source>%1，用时 %2 秒</source>
        <translation>%1, in %2 s</translation>
    </message>
    <message>
        <source>重试失败的</source>
        <translation>Retry</translation>
    </message>
    <message>
        <source>原因</source>
        <translation>Reason</translation>
    </message>
    <message>
        <source>文件已在别处打开，原文件未动</source>
        <translation>The file is open elsewhere, the former one is untouched</translation>
    </message>
    <message>
        <source>磁盘空间不足，原文件未动</source>
        <translation>The disk is full, the former file is untouched</translation>
    </message>
    <message>
        <source>参数没有读出：%1</source>
        <translation>The parameters were not read: %1</translation>
    </message>
    <message>
        <source>通讯状态</source>
        <translation>Communication state</translation>
    </message>
    <message>
        <source>采集计数</source>
        <translation>Capture counts</translation>
    </message>
    <message>
        <source>    没有目录</source>
        <translation>    no catalogue</translation>
    </message>
    <message>
        <source>已停止</source>
        <translation>Stopped</translation>
    </message>
    <message>
        <source>%1，第 %2 次之后</source>
        <translation>%1, after exchange %2</translation>
    </message>
    <message>
        <source>每 %1 分钟</source>
        <translation>every %1 min</translation>
    </message>
    <message>
        <source>%1 开始下一次，%2</source>
        <translation>next one at %1, %2</translation>
    </message>
    <message>
        <source>%1 已断开，插回后可继续</source>
        <translation>%1 unplugged, goes on when back</translation>
    </message>
    <message>
        <source>第 %1 次，%2</source>
        <translation>exchange %1, %2</translation>
    </message>
    <message>
        <source>查看记录</source>
        <translation>Show</translation>
    </message>
    <message>
        <source>编辑时停止</source>
        <translation>Stopped for editing</translation>
    </message>
    <message>
        <source>第 %1 次之后，按 F5 继续</source>
        <translation>after exchange %1, F5 goes on</translation>
    </message>
    <message>
        <source>按 %1</source>
        <translation>by %1</translation>
    </message>
    <message>
        <source>搜索中止</source>
        <translation>search broken off</translation>
    </message>
    <message>
        <source>填写仪表地址</source>
        <translation>instrument addresses entered</translation>
    </message>
    <message>
        <source>仪表搜索</source>
        <translation>instrument search</translation>
    </message>
    <message>
        <source>仪表搜索结束</source>
        <translation>end of the search</translation>
    </message>
    <message>
        <source>页面</source>
        <translation>Pages</translation>
    </message>
    <message>
        <source>转换方式</source>
        <translation>Conversion</translation>
    </message>
    <message>
        <source>通讯协议</source>
        <translation>Protocol</translation>
    </message>
    <message>
        <source>复制输出结果</source>
        <translation>Copy the result</translation>
    </message>
    <message>
        <source>计算过程</source>
        <translation>Calculation</translation>
    </message>
    <message>
        <source>复制计算过程</source>
        <translation>Copy the calculation</translation>
    </message>
    <message>
        <source>已复制</source>
        <translation>Copied</translation>
    </message>
    <message>
        <source>仪表：%1，%2</source>
        <translation>Instrument: %1, %2</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>模拟仪表不能启动！</source>
        <translation>The simulated instrument cannot be started!</translation>
    </message>
    <message>
        <source>%1，%2%</source>
        <translation>%1, %2%</translation>
    </message>
    <message>
        <source>小数位</source>
        <translation>the decimals</translation>
    </message>
    <message>
        <source>一字节</source>
        <translation>1 byte</translation>
    </message>
    <message>
        <source>两字节</source>
        <translation>2 bytes</translation>
    </message>
    <message>
        <source>四字节</source>
        <translation>4 bytes</translation>
    </message>
    <message>
        <source>此行</source>
        <translation>this row</translation>
    </message>
    <message>
        <source>已发送 %1，等待应答</source>
        <translation>sent %1, waiting</translation>
    </message>
    <message>
        <source>已应答，尚未读回</source>
        <translation>answered, not read back yet</translation>
    </message>
    <message>
        <source>已写入 %1，读回一致</source>
        <translation>written %1, read back equal</translation>
    </message>
    <message>
        <source>写入 %1，读回 %2</source>
        <translation>sent %1, read back %2</translation>
    </message>
    <message>
        <source>被拒绝：%1</source>
        <translation>refused: %1</translation>
    </message>
    <message>
        <source>未确认：仪表无应答，尚未读回</source>
        <translation>not confirmed: no answer, not read back yet</translation>
    </message>
    <message>
        <source>未确认：应答不正确，尚未读回</source>
        <translation>not confirmed: wrong answer, not read back yet</translation>
    </message>
    <message>
        <source>小数位尚未读到</source>
        <translation>decimals not read yet</translation>
    </message>
    <message>
        <source>允许 %1 … %2</source>
        <translation>allowed %1 … %2</translation>
    </message>
    <message>
        <source>小数 %1 位</source>
        <translation>decimals: %1</translation>
    </message>
    <message>
        <source>不是数值</source>
        <translation>no number</translation>
    </message>
    <message>
        <source>%1放不下</source>
        <translation>does not fit %1</translation>
    </message>
    <message>
        <source>超出上限</source>
        <translation>above the upper limit</translation>
    </message>
    <message>
        <source>低于下限</source>
        <translation>below the lower limit</translation>
    </message>
    <message>
        <source>%1放不下，仪表将收到 %2</source>
        <translation>does not fit %1, would arrive as %2</translation>
    </message>
    <message>
        <source>协议类型</source>
        <translation>Protocol</translation>
    </message>
    <message>
        <source>地址</source>
        <comment>a narrow column</comment>
        <translation>Addr.</translation>
    </message>
    <message>
        <source>波特率</source>
        <comment>a narrow column</comment>
        <translation>Baud</translation>
    </message>
    <message>
        <source> 未存 %1</source>
        <translation> missed %1</translation>
    </message>
    <message>
        <source>服务器上的目录打不开：%1</source>
        <translation>The catalogue on the server cannot be opened: %1</translation>
    </message>
    <message>
        <source>服务器没有应答</source>
        <translation>The server does not answer</translation>
    </message>
    <message>
        <source>与服务器的连接已中断</source>
        <translation>The connection to the server has broken</translation>
    </message>
    <message>
        <source>这次改动已经失败</source>
        <translation>This change has failed</translation>
    </message>
    <message>
        <source>另一个程序正在改写服务器上的目录，请等它结束后再试</source>
        <translation>Another program is rewriting the catalogue on the server, please try again when it has ended</translation>
    </message>
    <message>
        <source>目录的表结构已升级，升级前的目录存为 %1</source>
        <translation>The tables of the catalogue have been brought up to date, the former catalogue is kept as %1</translation>
    </message>
    <message>
        <source>目录的表结构没有升级，照旧使用：%1</source>
        <translation>The tables of the catalogue have not been brought up to date, it is used as it is: %1</translation>
    </message>
    <message>
        <source>目录是较新的程序建立的，本程序只读取它，不改写。需要采集或导入时请升级程序</source>
        <translation>The catalogue was made by a newer program, this one reads it and does not write it. Please upgrade the program to capture or import</translation>
    </message>
    <message>
        <source>使用指南</source>
        <translation>Guide</translation>
    </message>
    <message>
        <source>返回</source>
        <translation>Back</translation>
    </message>
    <message>
        <source>前进</source>
        <translation>Forward</translation>
    </message>
    <message>
        <source>首页</source>
        <translation>Contents</translation>
    </message>
    <message>
        <source>查找</source>
        <translation>Find</translation>
    </message>
    <message>
        <source>没有找到</source>
        <translation>Not found</translation>
    </message>
    <message>
        <source>目录是较新的程序建立的，本程序只能读取它，请升级程序</source>
        <translation>The catalogue was made by a newer program, this one can only read it, please upgrade the program</translation>
    </message>
    <message>
        <source>不是仪表通讯数据库，未作任何改动（%1）</source>
        <translation>It is no instrument catalogue, nothing was changed (%1)</translation>
    </message>
</context>
</TS>
