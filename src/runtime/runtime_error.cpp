#include "runtime/runtime_error.h"

#include "runtime/number.h"

namespace commtest {

namespace {

Text MessageOf(int number) {
    switch (number) {
        case RuntimeError::kInvalidArgument: return u"无效的过程调用或参数";
        case RuntimeError::kOverflow: return u"溢出";
        case RuntimeError::kSubscript: return u"下标越界";
        case RuntimeError::kTypeMismatch: return u"类型不匹配";
        case RuntimeError::kBadFile: return u"文件名或文件号错误";
        case RuntimeError::kFileNotFound: return u"文件未找到";
        case RuntimeError::kPastEndOfFile: return u"输入超出文件尾";
        case RuntimeError::kPathNotFound: return u"路径未找到";
        default: return u"应用程序定义或对象定义错误";
    }
}

}  // namespace

RuntimeError::RuntimeError(int number) : RuntimeError(number, MessageOf(number)) {}

RuntimeError RuntimeError::OfStore(Text engineText) { return {kStore, std::move(engineText)}; }

Text RuntimeError::StandardMessage() const {
    const Text blankLine = Text(kLineEnd) + Text(kLineEnd);
    if (number_ == kStore) return u"数据库错误:" + blankLine + message_;
    return u"实时错误 '" + WholeText(number_) + u"':" + blankLine + message_;
}

}  // namespace commtest
