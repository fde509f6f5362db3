#include "window/notice_words.h"

#include "host_qt/words.h"

namespace commtest {

QString WordsOn(const Notice& notice) {
    const QString detail = QString::fromStdU16String(notice.detail);
    switch (notice.kind) {
        case Notice::Kind::NoCatalogue: return Words::tr("没有打开仪表目录：%1").arg(detail);
        case Notice::Kind::PortCaveat: return detail;
        case Notice::Kind::EndOfFile: return Words::tr("%1 较长，只显示最后 1 MB").arg(detail);
        case Notice::Kind::PortLost: return Words::tr("串口已断开,通讯停止！");
        case Notice::Kind::NoUpdater: return Words::tr("更新程序不能启动！");
        case Notice::Kind::None: break;
    }
    return {};
}

QString RemedyOf(const Notice& notice) {
    const QString detail = QString::fromStdU16String(notice.detail);
    switch (notice.kind) {
        case Notice::Kind::PortLost: return detail;
        case Notice::Kind::NoUpdater:
            return Words::tr("%1 不存在或不能运行。现在继续使用本版本，请联系管理员更新").arg(detail);
        default: return {};
    }
}

}  // namespace commtest
