#include "cli/notice_words.h"

namespace commtest {

Text WordsOn(const Notice& notice) {
    switch (notice.kind) {
        case Notice::Kind::NoCatalogue: return u"目录 " + notice.detail + u" 不能打开";
        case Notice::Kind::PortCaveat: return notice.detail;
        case Notice::Kind::EndOfFile: return notice.detail + u" 较长，只显示最后 1 MB";
        case Notice::Kind::PortLost: return u"串口已断开,通讯停止！ " + notice.detail;
        case Notice::Kind::NoUpdater: return u"更新程序 " + notice.detail + u" 不能启动";
        case Notice::Kind::None: break;
    }
    return {};
}

}  // namespace commtest
