#include "window/notice_words.h"

namespace commtest {

using namespace Qt::StringLiterals;

QString WordsOn(const Notice& notice) {
    const QString detail = QString::fromStdU16String(notice.detail);
    switch (notice.kind) {
        case Notice::Kind::NoCatalogue: return u"没有打开仪表目录：%1"_s.arg(detail);
        case Notice::Kind::PortCaveat: return detail;
        case Notice::Kind::EndOfFile: return u"%1 较长，只显示最后 1 MB"_s.arg(detail);
        case Notice::Kind::PortLost: return u"串口已断开,通讯停止！"_s;
        case Notice::Kind::NoUpdater: return u"更新程序不能启动！"_s;
        case Notice::Kind::None: break;
    }
    return {};
}

QString RemedyOf(const Notice& notice) {
    const QString detail = QString::fromStdU16String(notice.detail);
    switch (notice.kind) {
        case Notice::Kind::PortLost: return detail;
        case Notice::Kind::NoUpdater:
            return u"%1 不存在或不能运行。现在继续使用本版本，请联系管理员更新"_s.arg(detail);
        default: return {};
    }
}

}  // namespace commtest
