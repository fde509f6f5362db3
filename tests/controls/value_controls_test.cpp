#include "controls/value_controls.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace commtest {
namespace {

using testing::ErrorOf;

// --- Texts ---

TEST(TextControl, ChangeRunsWhenTheTextReallyChanges) {
    TextControl control(u"1");
    int changes = 0;
    control.Change = [&] { ++changes; };
    control.Set(u"2");
    EXPECT_EQ(changes, 1);
    control.Set(u"1");
    EXPECT_EQ(changes, 2);
}

TEST(TextControl, SettingTheTextThatItHoldsChangesNothing) {
    TextControl control(u"1");
    int changes = 0;
    control.Change = [&] { ++changes; };
    const auto before = control.Generation();
    control.Set(u"1");
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(control.Generation(), before);
}

TEST(TextControl, ChangeSeesTheNewText) {
    TextControl control;
    Text seen;
    control.Change = [&] { seen = control.Value(); };
    control.Set(u"仪表");
    EXPECT_EQ(ToUtf8(seen), "仪表");
}

TEST(TextControl, ChangeMaySetTheTextAnew) {
    TextControl control;
    int changes = 0;
    control.Change = [&] {
        ++changes;
        control.Set(u"1");
    };
    control.Set(u"300");
    EXPECT_EQ(ToUtf8(control.Value()), "1");
    EXPECT_EQ(changes, 2);
}

TEST(TextControl, FirstTextFiresNothing) {
    EXPECT_EQ(TextControl(u"100").Generation(), 0U);
    EXPECT_EQ(ToUtf8(TextControl(u"100").Value()), "100");
    EXPECT_EQ(ToUtf8(TextControl().Value()), "");
}

TEST(TextControl, NeedsNoHandler) {
    TextControl control;
    control.Set(u"1");
    EXPECT_EQ(ToUtf8(control.Value()), "1");
}

// --- Ticks ---

TEST(TickControl, ClickRunsWhenTheValueChanges) {
    TickControl control;
    std::vector<bool> seen;
    control.Click = [&] { seen.push_back(control.Value()); };
    control.Set(true);
    control.Set(true);
    control.Set(false);
    control.Set(false);
    EXPECT_EQ(seen, (std::vector<bool>{true, false}));
}

TEST(TickControl, IsOffAtFirst) { EXPECT_FALSE(TickControl().Value()); }

// --- Option buttons ---

TEST(OptionGroup, ChoosingAlwaysRunsTheClick) {
    OptionGroup group;
    std::vector<int> clicks;
    group.Click = [&](int index) { clicks.push_back(index); };
    group.Choose(2);
    group.Choose(2);
    EXPECT_EQ(clicks, (std::vector<int>{2, 2}));
    EXPECT_TRUE(group.IsChosen(2));
}

TEST(OptionGroup, ShowingRunsNoClick) {
    OptionGroup group(0);
    int clicks = 0;
    group.Click = [&](int) { ++clicks; };
    group.Show(1);
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(group.Chosen(), 1);
    EXPECT_TRUE(group.IsChosen(1));
    EXPECT_FALSE(group.IsChosen(0));
    group.Show(1);
    EXPECT_EQ(clicks, 0);
}

TEST(OptionGroup, HasNoneChosenAtFirst) { EXPECT_EQ(OptionGroup().Chosen(), -1); }

// --- Lists ---

ListControl ListOf(std::initializer_list<Text> items) {
    ListControl list;
    for (const Text& item : items) list.Add(item);
    return list;
}

TEST(ListControl, IndexOfGivesTheFirstEntryOfThatTextFromZero) {
    const ListControl list = ListOf({u"甲", u"乙", u"甲", u""});
    EXPECT_EQ(list.IndexOf(u"甲"), 0);
    EXPECT_EQ(list.IndexOf(u"乙"), 1);
    EXPECT_EQ(list.IndexOf(u""), 3);
}

TEST(ListControl, IndexOfIsMinusOneWhereThereIsNone) {
    ListControl list = ListOf({u"甲"});
    EXPECT_EQ(list.IndexOf(u"丙"), -1);
    EXPECT_EQ(list.IndexOf(u"甲 "), -1);
    list.Clear();
    EXPECT_EQ(list.IndexOf(u"甲"), -1);
}

TEST(ListControl, EntryOutsideTheListRaisesError9) {
    const ListControl list = ListOf({u"甲", u"乙"});
    EXPECT_EQ(ToUtf8(list.At(1)), "乙");
    EXPECT_EQ(ErrorOf([&] { list.At(2); }), 9);
    EXPECT_EQ(ErrorOf([&] { list.At(-1); }), 9);
}

TEST(ListControl, TextMayBeOneThatIsNotInTheList) {
    ListControl list = ListOf({u"甲"});
    list.Set(u"别的");
    EXPECT_EQ(ToUtf8(list.Value()), "别的");
    EXPECT_EQ(list.Items().size(), 1U);
}

TEST(ListControl, ClearingLeavesTheText) {
    ListControl list = ListOf({u"甲"});
    list.Set(u"甲");
    list.Clear();
    EXPECT_EQ(ToUtf8(list.Value()), "甲");
    EXPECT_TRUE(list.Items().empty());
}

TEST(ListControl, SettingTheTextRunsTheChangeButNoClick) {
    ListControl list = ListOf({u"甲", u"乙"});
    int changes = 0;
    int clicks = 0;
    list.Change = [&] { ++changes; };
    list.Click = [&] { ++clicks; };
    list.Set(u"乙");
    list.Set(u"乙");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(clicks, 0);
}

TEST(ListControl, EpochMovesOnWhenTheListIsEmptied) {
    ListControl list;
    const auto before = list.Epoch();
    list.Add(u"甲");
    list.Set(u"甲");
    EXPECT_EQ(list.Epoch(), before);
    list.Clear();
    const auto emptied = list.Epoch();
    EXPECT_NE(emptied, before);
    list.Add(u"乙");
    EXPECT_EQ(list.Epoch(), emptied);
    list.Clear();
    EXPECT_NE(list.Epoch(), emptied);
}

// --- What a view asks ---

TEST(Generation, MovesOnWithEveryVisibleChange) {
    TextControl text;
    TickControl tick;
    OptionGroup group;
    ListControl list;
    text.Set(u"a");
    tick.Set(true);
    group.Show(0);
    list.Add(u"a");
    EXPECT_EQ(text.Generation(), 1U);
    EXPECT_EQ(tick.Generation(), 1U);
    EXPECT_EQ(group.Generation(), 1U);
    EXPECT_EQ(list.Generation(), 1U);
}

TEST(Generation, MovesOnWhenAControlIsHiddenOrLocked) {
    Presence control;
    EXPECT_TRUE(control.Visible());
    EXPECT_TRUE(control.Enabled());
    control.SetVisible(false);
    control.SetEnabled(false);
    EXPECT_FALSE(control.Visible());
    EXPECT_FALSE(control.Enabled());
    EXPECT_EQ(control.Generation(), 2U);
}

}  // namespace
}  // namespace commtest
