#pragma once

#include "runtime/text.h"

// Names of the files in the program folder.
namespace commtest {

inline constexpr TextView kErrorFileName = u"ErrorComm.ini";
inline constexpr TextView kKeptErrorFileStem = u"ErrorComm-";  // the moment and ".ini" behind it
inline constexpr TextView kRecordFolderName = u"自动保存通讯记录";
inline constexpr TextView kCatalogueFileName = u"通讯数据.mdb";
inline constexpr TextView kListFileName = u"TQ.ini";
inline constexpr TextView kListCopyFileName = u"OutTQ.ini";
inline constexpr TextView kTemplateFileName = u"TQP.Dev";
inline constexpr TextView kChannelTableFileName = u"OutTQ.Dev";
inline constexpr TextView kCatalogueCopyMark = u".bak-";   // behind the catalogue's name; the moment follows
inline constexpr TextView kUnfinishedCopyMark = u".part";  // behind the name of a copy until it is whole
inline constexpr TextView kSpreadsheetTemplateName = u"参数地址表.xls";
inline constexpr TextView kServerFileName = u"Setup.ini";
inline constexpr TextView kHelpFileName = u"使用说明.ini";
inline constexpr TextView kUpdaterFileName = u"通讯更新.exe";

}  // namespace commtest
