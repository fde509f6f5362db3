#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <optional>

#include "catalogue/shipped_catalogue.h"
#include "commands/toolbar_commands.h"
#include "host_qt/program_folder.h"
#include "window/fact_box.h"
#include "window/fact_table.h"
#include "window/import_question.h"
#include "window/import_result.h"
#include "window/list_work.h"
#include "window/tool_bar.h"
#include "window/widget_search.h"
#include "window/window_program.h"

namespace commtest::testing {

// The whole program over a folder with the shipped catalogue, and what a test of its lists does.
class ListWindow : public ::testing::Test {
  protected:
    ListWindow() {
        options.folder = scratch.filePath("folder");
        options.settingsFile = scratch.filePath("settings.ini");
        CreateProgramFolder(options.folder.toStdU16String(), FillWithShippedCatalogue);
        program.emplace(options);
        EXPECT_TRUE(program->Start());
        QObject::connect(&closer_, &QTimer::timeout, [this] { AnswerBox(); });
        closer_.start(5);
        QApplication::processEvents();
    }

    void Put(const QString& name, const QStringList& lines) const {
        QFile file(PathOf(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("\xEF\xBB\xBF" + lines.join("\r\n").toUtf8() + "\r\n");
    }
    QString PathOf(const QString& name) const { return options.folder + "/" + name; }
    QStringList Copies() const { return QDir(options.folder).entryList({"通讯数据.mdb.bak-*"}, QDir::Files); }

    // A list of so many instruments of the protocol that is chosen, each with three parameters.
    static QStringList ListOf(int instruments) {
        QStringList lines;
        for (int number = 1; number <= instruments; ++number) {
            lines += {QString("DEVICE 新表%1").arg(number),
                      "TYPE 11000101",
                      "001 测量值 3010 0 D",
                      "002 设定值 3020 0 RW",
                      "003 报警值 3030 1 RW",
                      "END"};
        }
        return lines << "DEVICE END";
    }

    MainForm& Form() { return program->Form(); }
    MainWindow& Window() { return program->Window(); }
    ListImport& Import() { return Window().Lists().Import(); }
    ToolBar& Tools() { return *Window().findChild<ToolBar*>(); }
    NoteBar& Notes() { return Window().Notes(); }
    WorkBand& Band() { return *Window().findChild<WorkBand*>(); }

    template <typename Box>
    Box* Find() {
        return Window().findChild<Box*>();
    }
    ImportQuestion& Question() { return *Find<ImportQuestion>(); }
    ImportResult& Result() { return *Find<ImportResult>(); }
    QString Read(const FactBox& box) { return box.accessibleName() + "；" + box.accessibleDescription(); }
    static QString Cell(const FactTable& table, int row, int column) {
        return table.item(row, column)->text();
    }

    void Press(const QWidget& view, const char* caption) {
        FindButton(view, caption)->click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static bool WaitFor(const std::function<bool()>& condition) {
        QElapsedTimer time;
        time.start();
        while (!condition() && time.elapsed() < kPatience)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
        return condition();
    }
    void Settle() {
        ASSERT_TRUE(WaitFor([this] { return !Import().IsUnderWay(); }));
    }

    // 导入地址, up to the question.
    void BeginImport() {
        Tools().Button(2).click();
        ASSERT_TRUE(WaitFor([this] { return Find<ImportQuestion>() != nullptr; }));
    }
    void RunImport() {
        BeginImport();
        Press(Question(), "是(&Y)");
        Settle();
    }

    QTemporaryDir scratch;
    WindowOptions options;
    std::optional<WindowProgram> program;
    QStringList boxes;            // texts of the boxes that came up, each answered at once
    QStringList details;          // what they say below
    QString answer = "是(&Y)";    // to a question
    std::function<void()> atBox;  // what is done before one is closed

  private:
    static constexpr int kPatience = 120'000;  // milliseconds

    void AnswerBox() {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) return;
        if (atBox) atBox();
        boxes += box->text();
        details += box->informativeText();
        if (QAbstractButton* button = FindButton(*box, answer)) return button->click();
        box->accept();
    }

    QTimer closer_;
};

}  // namespace commtest::testing
