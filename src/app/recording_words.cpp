#include "app/recording_words.h"

namespace commtest {

TextView PatternOf(RecordingFault::Kind kind) {
    using Kind = RecordingFault::Kind;
    switch (kind) {
        case Kind::NotUtf8: return u"不是 UTF-8 文字";
        case Kind::NoHeader: return u"没有文件头";
        case Kind::MissingMember: return u"缺少 \"%\"";
        case Kind::UnknownMember: return u"不认识 \"%\"";
        case Kind::TwiceTheMember: return u"\"%\" 出现两次";
        case Kind::WrongValue: return u"\"%\" 的值不对";
        case Kind::OtherFormat: return u"文件格式的版本不是 1";
        default: return u"不是一个 JSON 对象";
    }
}

Text FilledIn(TextView pattern, const RecordingFault& fault) {
    Text words(pattern);
    const std::size_t place = words.find(u'%');
    if (place != Text::npos) words.replace(place, 1, FromUtf8(fault.member));
    return words;
}

Text WordsOnFault(const RecordingFault& fault) { return FilledIn(PatternOf(fault.kind), fault); }

}  // namespace commtest
