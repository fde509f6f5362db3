#pragma once

#include <QFile>
#include <QTemporaryDir>

#include "catalogue/recordings.h"
#include "window/grid_view.h"
#include "window/note_bar.h"
#include "window/recorded_bench.h"
#include "window/view_bench.h"

namespace commtest::testing {

// The list of recordings on its page, the note bar, and a folder for files. The recording of 仪表甲 under
// PLANT has the two replies " 41" and " 42".
struct RecordingsBench {
    ViewBench bench;
    QWidget window;
    NoteBar notes{bench.theme, &window};
    GridView* list = new GridView(bench.binder, bench.theme, 2, &window);
    QTemporaryDir folder;

    RecordingsBench() {
        AddRecorded(bench.session, u"PLANT", "40", "41");
        AddRecorded(bench.session, u"PLANT", "40", "42");
        Form().SSTab2.Choose(3);
        window.resize(1000, 400);
        notes.setGeometry(0, 360, 1000, 24);
        list->setGeometry(0, 0, 1000, 300);
        window.show();
        bench.binder.Look();
    }

    MainForm& Form() { return bench.Form(); }
    Recordings Store() { return Recordings(*bench.session.store); }
    PairCount Count(const Text& note) { return Store().CountOf(u"仪表甲", note); }
    std::string Note() const { return notes.Text().toStdString(); }
    std::string Listed(int row, int column) { return ToUtf8(Form().MSHFlexGrid1[2].Cell(row, column)); }

    QString FileWith(const std::string& bytes) const {
        const QString path = folder.filePath("in.jsonl");
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes.data(), static_cast<qint64>(bytes.size()));
        return path;
    }
    static std::string BytesOf(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "none";
    }
    static std::string Head(const std::string& note) {
        return R"({"format": 1, "instrument": "仪表甲", "protocol": "TQ仪表协议", "code": "1101", "note": ")" +
               note + "\"}\n";
    }
    static std::string Line(const std::string& reply) {
        return R"({"date": "2024-05-06", "row": 6, "request": " 40", "reply": " )" + reply +
               "\", \"valid\": true}\n";
    }
};

}  // namespace commtest::testing
