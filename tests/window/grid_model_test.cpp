#include "window/grid_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace commtest::testing {
namespace {

class GridModelTest : public ::testing::Test {
  protected:
    Grid grid;
    std::unique_ptr<GridModel> model;

    GridModelTest() {
        grid.SetSize(4, 3);
        grid.SetCell(0, 1, u"参数名称");
        grid.SetCell(1, 0, u"001 ");
        grid.SetCell(3, 2, u"0125");
        model = std::make_unique<GridModel>(grid, nullptr);
    }

    std::string TextAt(int row, int col) const {
        return model->index(row, col).data().toString().toStdString();
    }
};

TEST_F(GridModelTest, FirstRowBelowTheHeadingsIsRowZero) {
    EXPECT_EQ(model->rowCount(), 3);
    EXPECT_EQ(model->columnCount(), 3);
    EXPECT_EQ(TextAt(0, 0), "001 ");
    EXPECT_EQ(TextAt(2, 2), "0125");
    EXPECT_EQ(TextAt(1, 1), "");
}

TEST_F(GridModelTest, RowZeroOfTheGridIsTheHeader) {
    EXPECT_EQ(model->headerData(1, Qt::Horizontal, Qt::DisplayRole).toString().toStdString(), "参数名称");
    EXPECT_FALSE(model->headerData(1, Qt::Vertical, Qt::DisplayRole).isValid());
}

TEST_F(GridModelTest, CellsAreReadWhenTheyAreAskedFor) {
    grid.SetCell(1, 0, u"甲");
    EXPECT_EQ(TextAt(0, 0), "甲");
}

TEST_F(GridModelTest, OnlyTextsAreTold) {
    for (const int role : {Qt::EditRole, Qt::ToolTipRole, Qt::ForegroundRole, Qt::BackgroundRole})
        EXPECT_FALSE(model->data(model->index(0, 0), role).isValid()) << role;
}

TEST_F(GridModelTest, CellsAreNoTree) {
    EXPECT_EQ(model->rowCount(model->index(0, 0)), 0);
    EXPECT_EQ(model->columnCount(model->index(0, 0)), 0);
}

TEST_F(GridModelTest, RowsThatCameAreInserted) {
    QAbstractItemModelTester tester(model.get());
    QSignalSpy inserted(model.get(), &QAbstractItemModel::rowsInserted);
    grid.SetRows(6);
    EXPECT_EQ(model->rowCount(), 3);
    model->Follow();
    EXPECT_EQ(model->rowCount(), 5);
    ASSERT_EQ(inserted.size(), 1);
    EXPECT_EQ(inserted[0][1].toInt(), 3);
    EXPECT_EQ(inserted[0][2].toInt(), 4);
}

TEST_F(GridModelTest, RowsThatWentAreRemoved) {
    QAbstractItemModelTester tester(model.get());
    QSignalSpy removed(model.get(), &QAbstractItemModel::rowsRemoved);
    grid.SetRows(2);
    model->Follow();
    EXPECT_EQ(model->rowCount(), 1);
    ASSERT_EQ(removed.size(), 1);
    EXPECT_EQ(removed[0][1].toInt(), 1);
    EXPECT_EQ(removed[0][2].toInt(), 2);
}

TEST_F(GridModelTest, OtherColumnsBeginAnew) {
    QAbstractItemModelTester tester(model.get());
    QSignalSpy reset(model.get(), &QAbstractItemModel::modelReset);
    grid.SetSize(3, 5);
    model->Follow();
    EXPECT_EQ(model->rowCount(), 2);
    EXPECT_EQ(model->columnCount(), 5);
    EXPECT_EQ(reset.size(), 1);
}

TEST_F(GridModelTest, SameSizeTellsNothing) {
    QSignalSpy inserted(model.get(), &QAbstractItemModel::rowsInserted);
    QSignalSpy removed(model.get(), &QAbstractItemModel::rowsRemoved);
    QSignalSpy reset(model.get(), &QAbstractItemModel::modelReset);
    grid.SetCell(1, 1, u"甲");
    model->Follow();
    EXPECT_EQ(inserted.size() + removed.size() + reset.size(), 0);
}

TEST_F(GridModelTest, CellsThatAreGoneSinceTheLastLookAreEmpty) {
    grid.SetSize(2, 1);
    EXPECT_EQ(model->rowCount(), 3);
    EXPECT_EQ(TextAt(2, 2), "");
    EXPECT_EQ(TextAt(0, 1), "");
    EXPECT_EQ(TextAt(1, 0), "");
    EXPECT_EQ(TextAt(0, 0), "001 ");
    EXPECT_EQ(model->headerData(1, Qt::Horizontal, Qt::DisplayRole).toString().toStdString(), "");
}

TEST_F(GridModelTest, GridWithoutAnyRowHasNone) {
    grid.SetSize(0, 0);
    model->Follow();
    EXPECT_EQ(model->rowCount(), 0);
    EXPECT_EQ(model->columnCount(), 0);
    const Grid empty;
    EXPECT_EQ(GridModel(empty, nullptr).rowCount(), 0);
}

}  // namespace
}  // namespace commtest::testing
