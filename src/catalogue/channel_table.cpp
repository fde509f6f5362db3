#include "catalogue/channel_table.h"

#include <algorithm>

#include "catalogue/parameter_list.h"
#include "host/file_names.h"
#include "runtime/code_page.h"
#include "runtime/hex_text.h"
#include "runtime/number.h"

namespace commtest {

namespace {

constexpr int kAddressDigits = 4;
constexpr int kDigitsBehindTheLength = 3;

std::vector<Text> TemplateLines(ListLines& lines) {
    std::vector<Text> rows;
    for (auto line = lines.Next(); line && !Contains(*line, u"END"); line = lines.Next()) {
        rows.push_back(*std::move(line));
    }
    return rows;
}

Text TwoDigits(int number) { return FittedToWidth(WholeText(number), 2); }

void ReplaceFirst(Text& text, TextView wanted, const Text& put) {
    const auto place = text.find(wanted);
    if (place != Text::npos) text.replace(place, wanted.size(), put);
}

// The walk over the rows of all channels: what lives from one to the next.
class ChannelRows {
  public:
    Text Row(int channel, Text line) {
        const std::size_t place = PlaceOfAddress(line);
        if (place != Text::npos) {
            left_ = line.substr(0, place);
            line.erase(0, place);
            MoveOn(line);
        }
        // Q215: a line without an address has the text of the line before in front.
        while (Contains(left_, u"%")) ReplaceFirst(left_, u"%", TwoDigits(channel));
        if (Contains(left_, u"小数点")) decimalAddress_ = Mid(line, 2, kDigitsBehindTheLength);
        // Q216: nothing in front of the first decimals row.
        ReplaceFirst(line, u"*", decimalAddress_);
        isFirst_ = false;
        return left_ + line;
    }

  private:
    static std::size_t PlaceOfAddress(TextView line) {
        for (std::size_t place = 0; place < line.size(); ++place) {
            if (BeginsWithAddress(line.substr(place))) return place;
        }
        return Text::npos;
    }

    // Each row takes half its length digit of the address; the first one has its own.
    void MoveOn(Text& line) {
        if (isFirst_) runningAddress_ = Left(line, kAddressDigits);
        const double behind = HexParse(Mid(runningAddress_, 2));
        const double words = static_cast<double>(ToWhole16(Left(runningAddress_, 1))) / 2;
        const Text next = FittedToWidth(HexOf(Whole16(behind + words)), kDigitsBehindTheLength);
        if (!isFirst_) line.replace(1, kDigitsBehindTheLength, next);
        runningAddress_ = Left(line, kAddressDigits);
    }

    bool isFirst_ = true;
    Text left_;
    Text runningAddress_;
    Text decimalAddress_;
};

}  // namespace

ChannelTable ChannelTableOf(ListLines& lines) {
    const std::vector<Text> rows = TemplateLines(lines);
    ChannelTable table;
    table.rows = static_cast<int>(rows.size());
    ChannelRows walk;
    for (int channel = 1; channel <= kChannels; ++channel) {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const Text row = walk.Row(channel, rows[i]);
            const std::string bytes = ToCodePage(row);
            if (channel == 1 && FromCodePage(bytes) != row)
                table.lossyLines.push_back(static_cast<int>(i) + 1);
            table.bytes += bytes + "\r\n";
        }
    }
    return table;
}

ChannelTable GenerateChannelTable(ProgramFiles& files) {
    ListLines lines(files.OpenBytes(Text(kTemplateFileName)));
    ChannelTable table = ChannelTableOf(lines);
    files.OpenForAppend(Text(kChannelTableFileName))->Write(table.bytes);
    return table;
}

}  // namespace commtest
