#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/dialogs.h"
#include "host/program_files.h"
#include "host/program_process.h"
#include "host/settings_store.h"

namespace commtest::testing {

// A box that was shown, and what was answered.
struct ShownBox {
    enum class Kind { Message, Notice, Error, YesNo, Input };
    Kind kind;
    Text text;       // message, question, prompt, or the standard message of an error
    Text title;      // of an input box
    Text proposal;   // of an input box
    Text answer;     // of an input box; "yes" or "no" of a question
    int number = 0;  // of an error
    std::int64_t time = 0;
    Text detail;  // of a message, a notice
    Notice::Kind notice = Notice::Kind::None;
};

// Answers boxes from a list in turn; used up: the proposal, or yes. A question takes "no" as no.
class FakeDialogs : public Dialogs {
  public:
    std::vector<Text> Answers;
    std::vector<ShownBox> Shown;
    std::function<std::int64_t()> Time = [] { return std::int64_t{0}; };

    void ShowMessage(const Text& text, const Text& detail) override;
    void ShowNotice(const Notice& notice) override;
    void ShowError(int number, const Text& standardMessage) override;
    bool AskYesNo(const Text& text) override;
    Text AskText(const Text& title, const Text& prompt, const Text& proposal) override;

    // The texts shown, for tests that look at nothing else.
    std::vector<std::string> Texts() const;

  private:
    std::optional<Text> NextAnswer();
    std::size_t nextAnswer_ = 0;
};

// The program folder in memory. Its texts are UTF-8 with a mark where they are read as bytes.
class FakeProgramFiles : public ProgramFiles {
  public:
    std::map<Text, Text> TextFiles;
    std::vector<std::pair<Text, Text>> SavedRecords;  // name and text, in order
    std::string ErrorFile;                            // its bytes
    std::map<Text, std::string> KeptErrorFiles;       // by the moment
    bool ErrorFileIsLong = false;                     // these are its end only
    bool HasRecordFolder = true;

    bool Exists(const Text& name) const override;
    Text PathOf(const Text& name) const override { return u"folder/" + name; }
    Text ReadWhole(const Text& name) const override;
    FileText ReadEnd(const Text& name) const override;
    std::unique_ptr<LineReader> ReadLines(const Text& name) const override;
    std::unique_ptr<ByteReader> OpenBytes(const Text& name) const override;
    std::vector<Text> NamesBeginning(const Text& beginning) const override;
    void Remove(const Text& name) override { TextFiles.erase(name); }
    void Rename(const Text& name, const Text& newName) override {
        TextFiles[newName] = TextFiles.at(name);
        TextFiles.erase(name);
    }
    std::unique_ptr<GrowingFile> OpenForAppend(const Text& name) override;
    void SaveRichText(const Text& name, const Text& text) override;
    void EmptyErrorFile() override { ErrorFile.clear(); }
    Text KeepErrorFile(const Text& moment) override;
};

class FakeProgram : public ProgramProcess {
  public:
    ProgramVersion Number{1, 2, 3};
    bool HasPrevInstance = false;
    std::map<Text, DateTime> FileTimes;
    std::set<Text> Programs;  // that can be started
    std::vector<Text> Started;
    bool HasEnded = false;

    ProgramVersion Version() const override { return Number; }
    bool PrevInstance() const override { return HasPrevInstance; }
    Text OwnFile() const override { return u"folder/commtest"; }
    DateTime FileTime(const Text& path) const override;
    void Start(const Text& path) override;
    void End() override { HasEnded = true; }
};

class FakeSettings : public SettingsStore {
  public:
    std::map<Text, Text> Values;

    std::optional<Text> Read(const Text& key) const override;
    void Save(const Text& key, const Text& value) override { Values[key] = value; }
};

}  // namespace commtest::testing
