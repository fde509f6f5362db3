// dialogue_runner FILE.json: runs a session in virtual time and writes what has happened as JSON. The formats
// are described in tests/cases/README.md. Exit status 3: the dialogue needs what is not built yet.

#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>

#include "commands/list_clicks.h"
#include "commands/operation_menus.h"
#include "commands/search_panel.h"
#include "host/serial_port.h"
#include "runtime/code_page.h"
#include "runtime/number.h"
#include "session/events.h"
#include "session/grid_editing.h"
#include "session/port_settings.h"
#include "session/records.h"
#include "support/bench_session.h"

namespace {

using Json = nlohmann::json;
using namespace commtest;
using namespace commtest::testing;

struct NotBuiltYet {
    std::string what;
};

Text TextOf(const Json& value) { return FromUtf8(value.get<std::string>()); }

Text FieldText(const Json& value) {
    if (value.is_null()) return {};
    return value.is_string() ? TextOf(value) : WholeText(value.get<std::int64_t>());
}

bool Ticked(const Json& value) { return value.is_boolean() ? value.get<bool>() : value.get<int>() != 0; }

const Face& FaceNamed(const std::string& name) {
    if (name != "english") throw NotBuiltYet{"the face " + name};
    return kEnglishFace;
}

TextControl* TextControlNamed(MainForm& form, const std::string& name) {
    const std::map<std::string, TextControl*> controls = {
        {"ConMeterAddr", &form.ConMeterAddr},       {"ConDataNub", &form.ConDataNub},
        {"ConDelayTime", &form.ConDelayTime},       {"ConSettingDE(0)", &form.ConSettingDE[0]},
        {"ConSettingDE(1)", &form.ConSettingDE[1]}, {"InputText", &form.InputText}};
    const auto found = controls.find(name);
    return found == controls.end() ? nullptr : found->second;
}

// "ConSettingBT(3)"
TickControl* RateTickNamed(MainForm& form, const std::string& name) {
    constexpr std::string_view array = "ConSettingBT(";
    if (!name.starts_with(array)) return nullptr;
    return &form.ConSettingBT.at(static_cast<std::size_t>(std::stoi(name.substr(array.size()))));
}

TickControl* TickNamed(MainForm& form, const std::string& name) {
    if (TickControl* rate = RateTickNamed(form, name)) return rate;
    const std::map<std::string, TickControl*> controls = {{"Check1", &form.Check1},
                                                          {"Check2", &form.Check2},
                                                          {"ConSelChange", &form.ConSelChange},
                                                          {"TimeSetup", &form.TimeSetup},
                                                          {"ConSaveData", &form.ConSaveData},
                                                          {"ConMyCommDriver", &form.ConMyCommDriver},
                                                          {"ConAutoSave(0)", &form.ConAutoSave[0]},
                                                          {"ConAutoSave(1)", &form.ConAutoSave[1]}};
    const auto found = controls.find(name);
    return found == controls.end() ? nullptr : found->second;
}

void SetTick(MainForm& form, const std::string& name, const Json& value) {
    TickControl* tick = TickNamed(form, name);
    if (tick == nullptr) throw NotBuiltYet{"the tick " + name};
    tick->Set(Ticked(value));
}

void SetText(MainForm& form, const std::string& name, const Json& value) {
    TextControl* control = TextControlNamed(form, name);
    if (control == nullptr) throw NotBuiltYet{"the text " + name};
    control->Set(FieldText(value));
}

void SetControl(BenchSession& bench, const std::string& name, const Json& value) {
    MainForm& form = bench.Form();
    if (name == "ConCommSetting") {
        for (std::size_t i = 0; i < value.size(); ++i) form.ConCommSetting[i].Set(FieldText(value[i]));
        Happen(bench, ConCommSetting_LostFocus);
    } else if (name == "ConAutoSave") {
        for (std::size_t i = 0; i < value.size(); ++i) form.ConAutoSave[i].Set(Ticked(value[i]));
    } else if (name == "ConSettingComm") {
        form.ConSettingComm.Set(FieldText(value));
    } else if (name == "ConSettingDE") {
        for (std::size_t i = 0; i < value.size(); ++i) form.ConSettingDE[i].Set(FieldText(value[i]));
    } else if (name == "ConSettingBT") {
        for (std::size_t i = 0; i < value.size(); ++i) form.ConSettingBT[i].Set(Ticked(value[i]));
    } else if (name == "WriteType") {
        form.WriteType.Show(value.get<int>());
    } else if (TickNamed(form, name) != nullptr) {
        SetTick(form, name, value);
    } else {
        SetText(form, name, value);
    }
}

void AddCatalogue(BenchSession& bench, const Json& catalogue) {
    for (const Json& instrument : catalogue) {
        std::vector<TestParameter> rows;
        for (const Json& row : instrument["rows"]) {
            rows.push_back({FieldText(row[0]), FieldText(row[1]), FieldText(row[2]), FieldText(row[3]),
                            FieldText(row[4])});
        }
        bench.Add(TextOf(instrument["name"]), TextOf(instrument["protocol"]), TextOf(instrument["code"]),
                  rows);
    }
}

void AddRecording(const BenchSession& bench, const Json& row) {
    std::vector<Text> columns;
    std::vector<StoreValue> values;
    for (const auto& field : row.items()) {
        columns.push_back(FromUtf8(field.key()));
        values.emplace_back(FieldText(field.value()));
    }
    bench.store->AddRow(u"通讯_仿真", columns, values);
}

void Select(BenchSession& bench, const Json& choice) {
    bench.Choose(TextOf(choice["protocol"]), FromUtf8(choice.value("instrument", "")));
}

using Action = std::function<void(BenchSession&, const Json&)>;

const std::map<std::string, Action>& Actions() {
    static const std::map<std::string, Action> actions = {
        {"button4", [](BenchSession& b, const Json&) { b.Press(4); }},
        {"toolbar", [](BenchSession& b, const Json& a) { b.Press(a["index"].get<int>()); }},
        {"click", [](BenchSession& b, const Json& a) { b.Click(a["row"].get<int>(), a["col"].get<int>()); }},
        {"type", [](BenchSession& b, const Json& a) { b.Form().InputText.Set(FieldText(a["text"])); }},
        {"enter", [](BenchSession& b,
                     const Json&) { Happen(b, [](MainForm& f) { InputText_KeyDown(f, key::kEnter); }); }},
        {"escape", [](BenchSession& b,
                      const Json&) { Happen(b, [](MainForm& f) { InputText_KeyDown(f, key::kEscape); }); }},
        {"key",
         [](BenchSession& b, const Json& a) {
             Happen(b, [&](MainForm& f) { InputText_KeyDown(f, a["code"].get<int>()); });
         }},
        {"set",
         [](BenchSession& b, const Json& a) {
             Happen(b, [&](MainForm& f) { SetText(f, a["name"].get<std::string>(), a["text"]); });
         }},
        {"command",
         [](BenchSession& b, const Json& a) { b.Form().CommandCode = a["code"].get<std::int32_t>(); }},
        {"menu",
         [](BenchSession& b, const Json& a) {
             const std::string name = a["menu"].is_string() ? a["menu"].get<std::string>() : a["menu"].dump();
             Happen(b, [&](MainForm& f) { ChooseMenuEntry(f, name.back() - '0', a["entry"].get<int>()); });
         }},
        {"tick",
         [](BenchSession& b, const Json& a) {
             Happen(b, [&](MainForm& f) { SetTick(f, a["name"].get<std::string>(), a["value"]); });
         }},
        {"write_type",
         [](BenchSession& b, const Json& a) {
             Happen(b, [&](MainForm& f) { f.WriteType.Choose(a["index"].get<int>()); });
         }},
        {"show_mode", [](BenchSession& b, const Json& a) { b.Form().ShowMode.Show(a["index"].get<int>()); }},
        {"check1", [](BenchSession& b,
                      const Json& a) { Happen(b, [&](MainForm& f) { f.Check1.Set(Ticked(a["value"])); }); }},
        {"timesetup",
         [](BenchSession& b, const Json& a) {
             Happen(b, [&](MainForm& f) { f.TimeSetup.Set(Ticked(a["value"])); });
         }},
        {"select", [](BenchSession& b, const Json& a) { Select(b, a); }},
        {"meter",
         [](BenchSession& b, const Json& a) {
             Happen(b, [&](MainForm& f) {
                 f.ConMeterName[0].Set(TextOf(a["name"]));
                 RunIfSet(f.ConMeterName[0].Click);
             });
         }},
        {"search_start",
         [](BenchSession& b, const Json&) { Happen(b, [](MainForm& f) { FindMeter_Click(f, 1); }); }},
        {"search_hide",
         [](BenchSession& b, const Json&) { Happen(b, [](MainForm& f) { FindMeter_Click(f, 0); }); }},
        {"replay",
         [](BenchSession& b, const Json& a) {
             Happen(b, [&](MainForm& f) {
                 Grid& list = f.MSHFlexGrid1[2];
                 list.SetSize(2, 5);
                 list.SetCell(1, 1, TextOf(a["protocol"]));
                 list.SetCell(1, 2, TextOf(a["instrument"]));
                 list.SetCell(1, 3, TextOf(a["note"]));
                 list.Select(1, 1);
                 MSHFlexGrid1_DblClick(f, 2);
             });
         }},
        {"clear_counters", [](BenchSession& b, const Json&) { Happen(b, ConCommMessage_DblClick); }},
        {"click_pane",
         [](BenchSession& b, const Json&) { Happen(b, [](MainForm& f) { ConCommString_Click(f, 1); }); }},
        {"comm_setting",
         [](BenchSession& b, const Json& a) {
             Happen(b, [&](MainForm& f) {
                 f.ConCommSetting[a["index"].get<std::size_t>()].Set(FieldText(a["text"]));
                 ConCommSetting_LostFocus(f);
             });
         }},
        {"port_occupied", [](BenchSession& b, const Json& a) { b.line.Occupied = Ticked(a["value"]); }},
    };
    return actions;
}

void Schedule(BenchSession& bench, const Json& dialogue) {
    for (const Json& action : dialogue.value("actions", Json::array())) {
        const std::string name = action["do"].get<std::string>();
        const auto found = Actions().find(name);
        if (found == Actions().end()) throw NotBuiltYet{"the action " + name};
        bench.line.At(action["at"].get<std::int64_t>(),
                      [&bench, action, run = found->second] { run(bench, action); });
    }
}

std::vector<Arrival> ArrivalsOf(const Json& reply) {
    std::vector<Arrival> arrivals;
    for (const Json& chunk : reply) {
        arrivals.emplace_back(chunk[0].get<std::int64_t>(), BytesOfHex(chunk[1].get<std::string>()));
    }
    return arrivals;
}

// The peer's entries in turn; a frame that a rule answers takes none of them.
class Peer {
  public:
    Peer(const VirtualLine& line, Json rules, Json entries)
        : line_(line), rules_(std::move(rules)), entries_(std::move(entries)) {}

    std::vector<Arrival> operator()(const std::string& frame) {
        for (const Json& rule : rules_) {
            const Text baud = Before(line_.Settings(), u',');
            const bool sameFrame = BytesOfHex(rule["frame"].get<std::string>()) == frame;
            const bool sameBaud =
                !rule.contains("baud") || rule["baud"].is_null() || FieldText(rule["baud"]) == baud;
            if (sameFrame && sameBaud) return Reply(rule["reply"]);
        }
        if (next_ >= entries_.size()) return {};
        const Json& entry = entries_[next_++];
        return entry.is_object() ? Reply(entry.value("reply", Json())) : std::vector<Arrival>();
    }

  private:
    static std::vector<Arrival> Reply(const Json& reply) {
        return reply.is_array() ? ArrivalsOf(reply) : std::vector<Arrival>();
    }

    const VirtualLine& line_;
    Json rules_;
    Json entries_;
    std::size_t next_ = 0;
};

void SetWallClock(BenchSession& bench, const std::string& text) {
    DateTime start;
    if (std::sscanf(text.c_str(), "%d-%d-%d %d:%d:%d", &start.year, &start.month, &start.day, &start.hour,
                    &start.minute, &start.second) == 6) {
        bench.line.SetWallClock(start);
    }
}

void SetUp(BenchSession& bench, const Json& dialogue) {
    MainForm& form = bench.Form();
    // As a start leaves them.
    form.ConSettingComm.Set(u"COM1");
    ShowPortStatus(form);
    SetWallClock(bench, dialogue.value("clock", "2024-05-06 12:00:00"));
    const auto random = dialogue.value("random", std::vector<double>());
    if (!random.empty()) bench.line.RandomNumbers = random;
    for (const Json& answer : dialogue.value("answers", Json::array()))
        bench.dialogs.Answers.push_back(FieldText(answer));
    bench.line.Occupied = dialogue.value("port_occupied", false);
    AddCatalogue(bench, dialogue["catalogue"]);
    for (const Json& row : dialogue.value("recordings", Json::array())) AddRecording(bench, row);
    bench.line.Answer =
        Peer(bench.line, dialogue.value("rules", Json::array()), dialogue.value("peer", Json::array()));
    const Json controls = dialogue.value("controls", Json::object());
    for (const auto& entry : controls.items()) {
        Happen(bench, [&](MainForm&) { SetControl(bench, entry.key(), entry.value()); });
    }
    for (const Json& choice : dialogue["select"]) Select(bench, choice);
    if (dialogue.contains("ShowMode")) form.ShowMode.Show(dialogue["ShowMode"].get<int>());
    form.CommandCode = dialogue.value("command_code", 31);
    Schedule(bench, dialogue);
}

Json JsonOf(TextView text) { return ToUtf8(text); }

template <typename Texts>
Json ListOf(const Texts& texts) {
    Json list = Json::array();
    for (const auto& text : texts) list.push_back(JsonOf(text));
    return list;
}

Json FramesOf(const BenchSession& bench) {
    Json frames = Json::array();
    for (const SentFrame& frame : bench.line.Frames()) {
        frames.push_back({{"t", frame.time},
                          {"hex", HexOfBytes(frame.bytes)},
                          {"settings", JsonOf(frame.settings)},
                          {"port", frame.port}});
    }
    return frames;
}

// How long a search took stands as "*".
Json MessageText(const Text& text) {
    static const std::regex seconds("耗时 [0-9]+ 秒");
    return std::regex_replace(ToUtf8(text), seconds, "耗时 * 秒");
}

Json MessageOf(const ShownBox& box) {
    switch (box.kind) {
        case ShownBox::Kind::Message:
            return {{"t", box.time}, {"kind", "msg"}, {"text", MessageText(box.text)}};
        case ShownBox::Kind::Notice: return {{"t", box.time}, {"kind", "notice"}};
        case ShownBox::Kind::Error: return {{"t", box.time}, {"kind", "error"}, {"number", box.number}};
        case ShownBox::Kind::YesNo:
            return {{"t", box.time},
                    {"kind", "yesno"},
                    {"text", JsonOf(box.text)},
                    {"answer", JsonOf(box.answer)}};
        default:
            return {{"t", box.time},
                    {"kind", "input"},
                    {"title", JsonOf(box.title)},
                    {"text", JsonOf(box.text)},
                    {"default", JsonOf(box.proposal)},
                    {"answer", JsonOf(box.answer)}};
    }
}

Json MessagesOf(const BenchSession& bench) {
    Json messages = Json::array();
    for (const ShownBox& box : bench.dialogs.Shown) messages.push_back(MessageOf(box));
    return messages;
}

Json CellsOf(const Grid& grid) {
    Json cells = Json::object();
    for (int row = 1; row < grid.Rows(); ++row) {
        for (int col = 0; col < grid.Cols(); ++col) {
            if (grid.Cell(row, col).empty()) continue;
            cells[std::to_string(row) + "," + std::to_string(col)] = JsonOf(grid.Cell(row, col));
        }
    }
    return cells;
}

Json ColoursOf(const Grid& grid) {
    Json colours = Json::object();
    for (const auto& [cell, colour] : grid.Colours()) {
        colours[std::to_string(cell.first) + "," + std::to_string(cell.second)] = colour;
    }
    return colours;
}

// The records of the error file without their time stamps ("YYYY-MM-DD HH:MM:SS", 19 characters).
Json ErrorRecordsOf(const BenchSession& bench) {
    constexpr int kStamp = 19;
    Json records = Json::array();
    Text rest = FromFileBytes(bench.files.ErrorFile);
    const Text end = Text(kLineEnd) + Text(kLineEnd);
    while (!rest.empty()) {
        const auto tail = rest.find(u"        串口设置: ");
        const auto stop = rest.find(end, tail) + end.size();
        records.push_back(JsonOf(TextView(rest).substr(kStamp, stop - kStamp)));
        rest = rest.substr(stop);
    }
    return records;
}

Json SavedRecordsOf(const BenchSession& bench) {
    Json records = Json::array();
    for (const auto& record : bench.files.SavedRecords) records.push_back(JsonOf(record.second));
    return records;
}

Json CountersOf(const MainForm& form) {
    return {{"SendCount", form.SendCount},
            {"IncompleteCount", form.IncompleteCount},
            {"CheckErrorCount", form.CheckErrorCount},
            {"NoReplyCount", form.NoReplyCount},
            {"RxEventCount", form.RxEventCount},
            {"WaitTicks", form.WaitTicks},
            {"SearchFoundCount", form.SearchFoundCount}};
}

Json RecordingsOf(Store& store) {
    const StoreRows rows =
        store.Query(u"SELECT 说明,编码,采集日期,地址,指令,回送,仪表名称,协议 FROM 通讯_仿真 ORDER BY ID");
    Json recordings = Json::array();
    for (std::size_t row = 0; row < rows.rows.size(); ++row) {
        Json values = Json::object();
        for (std::size_t i = 0; i < rows.columns.size(); ++i) {
            values[ToUtf8(rows.columns[i])] = JsonOf(rows.At(row, i));
        }
        recordings.push_back(std::move(values));
    }
    return recordings;
}

// What only a face other than the Chinese one is asked for: its title before the version, and its headings.
void AddWordsOfFace(MainForm& form, Json& trace) {
    trace["window_title"] = JsonOf(form.texts.beforeVersion);
    Json headings = Json::array();
    for (int col = 0; col < form.ParameterGrid().Cols(); ++col)
        headings.push_back(JsonOf(form.ParameterGrid().Cell(0, col)));
    trace["grid_titles"] = headings;
}

Json TraceOf(BenchSession& bench) {
    MainForm& form = bench.Form();
    Json messageTexts = Json::array();
    for (const TextControl& label : form.ConCommMessage) messageTexts.push_back(JsonOf(label.Value()));
    return {{"frames", FramesOf(bench)},
            {"messages", MessagesOf(bench)},
            {"grid_rows", form.ParameterGrid().Rows()},
            {"grid", CellsOf(form.ParameterGrid())},
            {"colours", ColoursOf(form.ParameterGrid())},
            {"counters", CountersOf(form)},
            {"ProtocolCode", form.ProtocolCode},
            {"MeterCodeText", JsonOf(form.MeterCodeText)},
            {"CommandCode", form.CommandCode},
            {"CycleStep", form.CycleStep},
            {"CurrentRow", form.CurrentRow},
            {"FirstDataRow", form.FirstDataRow},
            {"AddressText", JsonOf(form.AddressText)},
            {"SendText", JsonOf(form.SendText)},
            {"ReplyText", JsonOf(form.ReplyText)},
            {"StaticSample", JsonOf(form.StaticSample)},
            {"DynamicSample", JsonOf(form.DynamicSample)},
            {"caption4", JsonOf(form.StartStopCaption())},
            {"port_open", form.MSComm1.PortOpen()},
            {"port_settings", JsonOf(form.MSComm1.Settings())},
            {"status_panel2", JsonOf(form.StatusBar1[1].Value())},
            {"timer2_enabled", form.Timer1[2].Enabled()},
            {"ConMeterAddr", JsonOf(form.ConMeterAddr.Value())},
            {"ConDelayTime", JsonOf(form.ConDelayTime.Value())},
            {"ConMeterName", JsonOf(form.ConMeterName[0].Value())},
            {"ShowMode", form.ShowMode.Chosen()},
            {"ConSendOutString_text", JsonOf(form.ConSendOutString[0].Value())},
            {"ConSendOutString_list", ListOf(form.ConSendOutString[0].Items())},
            {"ConCommMessage", messageTexts},
            {"pane", JsonOf(form.ConCommString[1].WholeText())},
            {"saved_records", SavedRecordsOf(bench)},
            {"error_records", ErrorRecordsOf(bench)},
            {"error_file_open", bench.files.ErrorFileIsOpen()},
            {"recordings", RecordingsOf(*bench.store)}};
}

int Run(const char* path) {
    std::ifstream file(path);
    if (!file) {
        std::cerr << "dialogue_runner: " << path << ": cannot be read\n";
        return 2;
    }
    const Json dialogue = Json::parse(file);
    const bool hasFace = dialogue.contains("face");
    BenchSession bench(hasFace ? FaceNamed(dialogue["face"].get<std::string>()) : kChineseFace);
    SetUp(bench, dialogue);
    bench.line.RunUntil(dialogue.value("stop_at", std::int64_t{3000}));
    Json trace = TraceOf(bench);
    if (hasFace) AddWordsOfFace(bench.Form(), trace);
    std::cout << trace.dump(1) << '\n';
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: dialogue_runner FILE.json\n";
        return 2;
    }
    try {
        return Run(argv[1]);
    } catch (const NotBuiltYet& missing) {
        std::cerr << "dialogue_runner: not built yet: " << missing.what << '\n';
        return 3;
    } catch (const Json::exception& error) {
        std::cerr << "dialogue_runner: " << argv[1] << ": " << error.what() << '\n';
        return 2;
    }
}
