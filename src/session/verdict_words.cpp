#include "session/verdict_words.h"

namespace commtest {

Text WordsOnCheckWord(CheckWord check) {
    switch (check) {
        case CheckWord::Right: return u"CRC校验正确  ";
        case CheckWord::Wrong: return u"CRC校验错误  ";
        default: return {};
    }
}

Text WordsOnNoReply(Ending ending) {
    switch (ending) {
        case Ending::Silent: return u"仪表无应答  注意：仪表无应答或返回软件无法识别的数据";
        case Ending::Incomplete: return u"数据不完整  注意：仪表无应答或返回软件无法识别的数据";
        default: return {};
    }
}

}  // namespace commtest
