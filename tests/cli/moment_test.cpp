#include "cli/moment.h"

#include <gtest/gtest.h>

namespace commtest {

namespace {

const QDateTime kNow(QDate(2026, 11, 22), QTime(22, 15, 30));

QString Named(const char* text) {
    const auto moment = MomentNamed(QString::fromUtf8(text), kNow);
    return moment ? moment->toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")) : QStringLiteral("none");
}

TEST(MomentNamed, TimeIsTheNextOne) {
    EXPECT_EQ(Named("22:16"), "2026-11-22 22:16:00");
    EXPECT_EQ(Named("22:15"), "2026-11-23 22:15:00");
    EXPECT_EQ(Named("22:15:31"), "2026-11-22 22:15:31");
    EXPECT_EQ(Named("22:15:30"), "2026-11-23 22:15:30");
    EXPECT_EQ(Named("06:30"), "2026-11-23 06:30:00");
}

TEST(MomentNamed, DateStandsInFrontOfATime) {
    EXPECT_EQ(Named("2026-11-24 06:30"), "2026-11-24 06:30:00");
    EXPECT_EQ(Named("2026-11-24T06:30:15"), "2026-11-24 06:30:15");
}

TEST(MomentNamed, PastMomentsAndOtherTextsAreNone) {
    for (const char* text :
         {"", "soon", "24:00", "6:30pm", "2026-11-22 22:15", "2026-02-30 06:30", "2026-11-24"}) {
        EXPECT_EQ(Named(text), "none") << text;
    }
}

}  // namespace

}  // namespace commtest
