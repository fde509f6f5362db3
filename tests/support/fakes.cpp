#include "support/fakes.h"

#include <utility>

#include "host/file_names.h"
#include "runtime/code_page.h"
#include "runtime/runtime_error.h"
#include "support/bytes_of_text.h"

namespace commtest::testing {

namespace {

class LinesOfText : public LineReader {
  public:
    explicit LinesOfText(Text text) : rest_(std::move(text)) {}

    std::optional<Text> Next() override {
        if (rest_.empty()) return std::nullopt;
        Text line = Before(rest_, u'\n');
        rest_ = Behind(rest_, u'\n');
        if (line.ends_with(u'\r')) line.pop_back();
        return line;
    }

  private:
    Text rest_;
};

class GrowingBytes : public GrowingFile {
  public:
    explicit GrowingBytes(std::string& file) : file_(file) {}
    void Write(const std::string& bytes) override { file_ += bytes; }

  private:
    std::string& file_;
};

class GrowingText : public GrowingFile {
  public:
    explicit GrowingText(Text& file) : file_(file) {}
    void Write(const std::string& bytes) override { file_ += FromCodePage(bytes); }

  private:
    Text& file_;
};

}  // namespace

std::optional<Text> FakeDialogs::NextAnswer() {
    if (nextAnswer_ >= Answers.size()) return std::nullopt;
    return Answers[nextAnswer_++];
}

void FakeDialogs::ShowMessage(const Text& text, const Text& detail) {
    Shown.push_back({ShownBox::Kind::Message, text, {}, {}, {}, 0, Time(), detail, {}});
}

void FakeDialogs::ShowNotice(const Notice& notice) {
    Shown.push_back({ShownBox::Kind::Notice, {}, {}, {}, {}, 0, Time(), notice.detail, notice.kind});
}

void FakeDialogs::ShowError(int number, const Text& standardMessage) {
    Shown.push_back({ShownBox::Kind::Error, standardMessage, {}, {}, {}, number, Time(), {}, {}});
}

bool FakeDialogs::AskYesNo(const Text& text) {
    const Text answer = NextAnswer().value_or(u"yes");
    Shown.push_back({ShownBox::Kind::YesNo, text, {}, {}, answer, 0, Time(), {}, {}});
    return answer != u"no";
}

Text FakeDialogs::AskText(const Text& title, const Text& prompt, const Text& proposal) {
    const Text answer = NextAnswer().value_or(proposal);
    Shown.push_back({ShownBox::Kind::Input, prompt, title, proposal, answer, 0, Time(), {}, {}});
    return answer;
}

std::vector<std::string> FakeDialogs::Texts() const {
    std::vector<std::string> texts;
    for (const ShownBox& box : Shown) texts.push_back(ToUtf8(box.text));
    return texts;
}

bool FakeProgramFiles::Exists(const Text& name) const {
    for (const auto& record : SavedRecords) {
        if (record.first == name) return true;
    }
    return TextFiles.contains(name);
}

Text FakeProgramFiles::ReadWhole(const Text& name) const {
    if (name == kErrorFileName) return FromFileBytes(ErrorFile);
    const auto found = TextFiles.find(name);
    if (found == TextFiles.end()) throw RuntimeError(RuntimeError::kFileNotFound);
    return found->second;
}

FileText FakeProgramFiles::ReadEnd(const Text& name) const {
    return {ReadWhole(name), name == kErrorFileName && ErrorFileIsLong};
}

std::unique_ptr<LineReader> FakeProgramFiles::ReadLines(const Text& name) const {
    return std::make_unique<LinesOfText>(ReadWhole(name));
}

std::unique_ptr<ByteReader> FakeProgramFiles::OpenBytes(const Text& name) const {
    return std::make_unique<BytesOfText>(std::string(kUtf8Mark) + ToUtf8(ReadWhole(name)));
}

std::vector<Text> FakeProgramFiles::NamesBeginning(const Text& beginning) const {
    std::vector<Text> names;
    for (const auto& file : TextFiles) {
        if (file.first.starts_with(beginning)) names.push_back(file.first);
    }
    return names;
}

std::unique_ptr<GrowingFile> FakeProgramFiles::OpenForAppend(const Text& name) {
    if (name == kErrorFileName) return std::make_unique<GrowingBytes>(ErrorFile);
    return std::make_unique<GrowingText>(TextFiles[name]);
}

void FakeProgramFiles::SaveRichText(const Text& name, const Text& text) {
    if (!HasRecordFolder) throw RuntimeError(RuntimeError::kPathNotFound);
    SavedRecords.emplace_back(name, text);
}

Text FakeProgramFiles::KeepErrorFile(const Text& moment) {
    KeptErrorFiles[moment] = ErrorFile;
    return Text(kKeptErrorFileStem) + moment + u".ini";
}

DateTime FakeProgram::FileTime(const Text& path) const {
    const auto found = FileTimes.find(path);
    if (found == FileTimes.end()) throw RuntimeError(RuntimeError::kFileNotFound);
    return found->second;
}

void FakeProgram::Start(const Text& path) {
    if (!Programs.contains(path)) throw RuntimeError(RuntimeError::kFileNotFound);
    Started.push_back(path);
}

std::optional<Text> FakeSettings::Read(const Text& key) const {
    const auto found = Values.find(key);
    if (found == Values.end()) return std::nullopt;
    return found->second;
}

}  // namespace commtest::testing
