#include "cli/read_repetition.h"

#include "session/command_code.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

// Whether an exchange brought nothing that can be used; of a protocol that judges nothing only silence
// counts.
bool IsUnread(const MainForm& form, const Outcome& outcome) {
    if (outcome.exchange.ending == Ending::Silent) return true;
    if (form.ProtocolInUse().judge == nullptr) return false;
    return outcome.exchange.ending == Ending::Incomplete || outcome.verdict.check == CheckWord::Wrong;
}

QString WordsOn(const Outcome& outcome) {
    if (outcome.exchange.ending == Ending::Silent) return u"无应答"_s;
    return outcome.exchange.ending == Ending::Incomplete ? u"数据不完整"_s : u"校验出错"_s;
}

}  // namespace

void ReadRepetition::BeforeFrame() {
    const MainForm& form = line_.Form();
    place_.command = form.CommandCode;
    place_.row = form.CurrentRow;
    place_.frame = form.SendText;
    place_.frameCommand = form.ReadFrameCommand;
    place_.attribute = form.ReadAttribute;
    if (isDue_) ++count_;
    isDue_ = false;
    isUnderWay_ = true;
}

bool ReadRepetition::MayRepeat() const {
    const bool isTest =
        place_.command == command::kTestFixedFrame || place_.command == command::kTestRisingFrame;
    return !isTest && place_.command < command::kWriteOffset && inARow_ < most_;
}

void ReadRepetition::Repeat() {
    MainForm& form = line_.Form();
    ++inARow_;
    form.CommandCode = place_.command;
    form.CurrentRow = place_.row;
    form.SendText = place_.frame;
    form.ReadFrameCommand = place_.frameCommand;
    form.ReadAttribute = place_.attribute;
    isDue_ = true;
}

void ReadRepetition::Note(const Outcome& outcome) {
    isUnderWay_ = outcome.exchange.ending == Ending::Continued;
    if (outcome.verdict.answer == Answer::Refused) hasFailed_ = true;
    if (!IsUnread(line_.Form(), outcome)) {
        if (!isUnderWay_) inARow_ = 0;
    } else if (MayRepeat()) {
        const QString number = u"第 %1 次通讯"_s.arg(outcome.exchange.number);
        Repeat();
        console_.Tell(number + WordsOn(outcome) + u"，重复第 %1 次"_s.arg(inARow_));
    } else {
        hasFailed_ = true;
        inARow_ = 0;
    }
}

void ReadRepetition::NoteLoss() {
    if (!isUnderWay_) return;
    isUnderWay_ = false;
    if (MayRepeat()) {
        Repeat();
    } else {
        hasFailed_ = true;
    }
}

}  // namespace commtest
