#pragma once

#include <QObject>
#include <QPointer>
#include <QSettings>

#include "host_qt/folder_files.h"
#include "session/main_form.h"
#include "window/theme.h"

namespace commtest {

class CatalogueBox;
class GridView;
class MainWindow;

// What the window does about a catalogue that is not open: it shows what was chosen the last time, says so in
// the state line, and asks for a way out. Where the catalogue is open, it only keeps in mind what is chosen.
class MissingCatalogue : public QObject {
    Q_OBJECT

  public:
    // Behind the start of the session. `settings` keep the names of what is chosen, in the section "Window".
    MissingCatalogue(MainForm& form, FolderFiles& files, QSettings& settings);

    // The folder that was chosen in place of the usual one is used by later starts, too.
    void RememberFolder() { remembersFolder_ = true; }

    // The folder that was remembered, while a catalogue stands in it; else empty.
    static QString RememberedFolder(const QSettings& settings);

    // Makes the window show what there is, and asks as soon as it can be seen.
    void ShowIn(MainWindow& window, const Theme& theme);

    // The way out over another folder: its catalogue is opened, or the box says why it cannot be.
    void UseFolder(const QString& folder);

  private:
    bool IsOpen() const;
    void CoverList(GridView& list);
    void Ask();
    void Create();
    void OpenOrSay();
    QString TryToOpen();
    void Say(const QString& problem);
    QString Path() const;
    QString KeepFormerFile();

    MainForm& form_;
    FolderFiles& files_;
    QSettings& settings_;
    bool remembersFolder_ = false;
    MainWindow* window_ = nullptr;
    const Theme* theme_ = nullptr;
    QPointer<CatalogueBox> box_;
};

}  // namespace commtest
