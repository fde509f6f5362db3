#include "session/exchange.h"

#include <gtest/gtest.h>

namespace commtest {
namespace {

TEST(Exchange, HasEndedWithItsReplyOrAPartOfIt) {
    struct Case {
        Ending ending;
        bool hasEnded;
    };
    for (const Case& one :
         {Case{Ending::Complete, true}, Case{Ending::Continued, true}, Case{Ending::Silent, false},
          Case{Ending::Incomplete, false}, Case{Ending::Unjudged, false}}) {
        Exchange exchange;
        exchange.ending = one.ending;
        EXPECT_EQ(exchange.HasEnded(), one.hasEnded) << static_cast<int>(one.ending);
    }
}

TEST(Verdict, OnlyCheckedDataAreAGoodRead) {
    struct Case {
        CheckWord check;
        Answer answer;
        bool isGood;
    };
    for (const Case& one :
         {Case{CheckWord::Right, Answer::Data, true}, Case{CheckWord::Wrong, Answer::Data, false},
          Case{CheckWord::None, Answer::Data, false}, Case{CheckWord::NotJudged, Answer::Data, false},
          Case{CheckWord::Right, Answer::Written, false}, Case{CheckWord::Right, Answer::Refused, false},
          Case{CheckWord::Right, Answer::Unknown, false}}) {
        Verdict verdict;
        verdict.check = one.check;
        verdict.answer = one.answer;
        EXPECT_EQ(verdict.IsGoodRead(), one.isGood)
            << static_cast<int>(one.check) << " " << static_cast<int>(one.answer);
    }
}

}  // namespace
}  // namespace commtest
