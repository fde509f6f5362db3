#pragma once

#include <memory>
#include <string>
#include <vector>

#include "catalogue/instrument_catalogue.h"
#include "host/file_names.h"
#include "support/bytes_of_text.h"
#include "support/fakes.h"
#include "support/stores_under_test.h"

namespace commtest::testing {

// A catalogue with three classes, and a program folder.
struct ListBench {
    explicit ListBench(const StoreUnderTest& kind = StoresUnderTest().front())
        : store(MakeEmptyCatalogue(kind)) {
        catalogue.AddClass(u"数字显示仪表", 1);
        catalogue.AddClass(u"流量仪表", 3);
        catalogue.AddClass(u"记录仪", 13);
    }

    void Replace(const Text& wanted, const Text& put) const {
        store->AddRow(u"字符_替换", {u"原字符", u"新字符"}, {wanted, put});
    }

    // The lines of a file of the folder.
    void Put(TextView name, const std::vector<Text>& lines) {
        Text& text = files.TextFiles[Text(name)];
        text.clear();
        for (const Text& line : lines) text += line + Text(kLineEnd);
    }

    // The rows of a table, the fields joined by "|".
    static std::vector<std::string> Lines(const StoreRows& result) {
        std::vector<std::string> lines;
        for (std::size_t row = 0; row < result.rows.size(); ++row) {
            std::string line = ToUtf8(result.At(row, 0));
            for (std::size_t i = 1; i < result.columns.size(); ++i) line += "|" + ToUtf8(result.At(row, i));
            lines.push_back(line);
        }
        return lines;
    }

    // 仪表ID|仪表名称|编号|协议|编码|类别|类别ID
    std::vector<std::string> Instruments() const { return Lines(catalogue.AllInstruments()); }
    // ID|仪表ID|参数名称|地址|长度|属性|小数点|下限值|上限值
    std::vector<std::string> Parameters() const { return Lines(catalogue.AllParameters()); }

    std::unique_ptr<Store> store;
    InstrumentCatalogue catalogue{*store};
    FakeProgramFiles files;
    FakeDialogs dialogs;
};

}  // namespace commtest::testing
