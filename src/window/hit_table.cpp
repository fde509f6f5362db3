#include "window/hit_table.h"

#include <QPainter>
#include <array>

#include "host_qt/words.h"
#include "window/glyphs.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFirstBytes = 5;
constexpr int kPadding = 8;
constexpr int kGlyphSize = 16;
constexpr std::int64_t kMicroseconds = 1000;  // of a millisecond

QStringList Headings() {
    return {Words::tr("地址", "a narrow column"), Words::tr("波特率", "a narrow column"),
            Words::tr("应答 ms"), Words::tr("首字节"), Words::tr("校验字")};
}

QString CheckWords(CheckWord check) {
    switch (check) {
        case CheckWord::Right: return Words::tr("正确");
        case CheckWord::Wrong: return Words::tr("错误");
        case CheckWord::None: return Words::tr("无");
        case CheckWord::NotJudged: break;
    }
    return Words::tr("未判断");
}

QString ReplyTime(const SearchHit& hit) {
    if (!hit.replyTime) return {};
    return QString::number((*hit.replyTime + kMicroseconds / 2) / kMicroseconds);
}

QString TextOf(const SearchHit& hit, int column) {
    switch (column) {
        case HitModel::kAddress: return QString::number(hit.address);
        case HitModel::kRate: return ToQt(hit.rate);
        case HitModel::kReplyTime: return ReplyTime(hit);
        case HitModel::kFirstBytes: return ToQt(hit.reply).trimmed().left(3 * kFirstBytes - 1);
        default: return CheckWords(hit.check);
    }
}

QString Spoken(const SearchHit& hit) {
    QString words = Words::tr("地址 %1，%2 波特").arg(hit.address).arg(ToQt(hit.rate));
    if (hit.replyTime) words += Words::tr("，%1 毫秒").arg(ReplyTime(hit));
    return words + Words::tr("，校验字%1").arg(CheckWords(hit.check));
}

bool IsNumber(int column) { return column <= HitModel::kReplyTime; }

}  // namespace

HitModel::HitModel(const MainForm& form, QObject* parent)
    : QAbstractTableModel(parent), form_(form), rows_(static_cast<int>(form.SearchHits.size())) {}

void HitModel::Follow() {
    const int rows = static_cast<int>(form_.SearchHits.size());
    if (rows < rows_) {
        beginResetModel();
        rows_ = rows;
        endResetModel();
    } else if (rows > rows_) {
        beginInsertRows({}, rows_, rows - 1);
        rows_ = rows;
        endInsertRows();
    }
}

int HitModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int HitModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : kColumns; }

QVariant HitModel::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (!index.isValid() || row >= form_.SearchHits.size()) return {};
    const SearchHit& hit = form_.SearchHits[row];
    if (role == Qt::DisplayRole) return TextOf(hit, index.column());
    if (role == Qt::ToolTipRole && index.column() == Column::kFirstBytes) return ToQt(hit.reply).trimmed();
    if (role == Qt::AccessibleTextRole) return Spoken(hit);
    return {};
}

QVariant HitModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section >= kColumns) return {};
    if (role == Qt::DisplayRole) return Headings().at(section);
    if (role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignVCenter | (IsNumber(section) ? Qt::AlignRight : Qt::AlignLeft));
    return {};
}

QByteArray HitModel::AsCsv() const {
    QString lines(QChar::ByteOrderMark);
    const auto add = [&lines](const QStringList& fields) { lines += fields.join(u',') + u"\r\n"_s; };
    add(Headings());
    for (const SearchHit& hit : form_.SearchHits) {
        QStringList fields;
        for (int column = 0; column < kColumns; ++column) fields += TextOf(hit, column);
        add(fields);
    }
    return lines.toUtf8();
}

// --- How a hit looks ---

HitDelegate::HitDelegate(const MainForm& form, const Theme& theme, QObject* parent)
    : QStyledItemDelegate(parent), form_(form), theme_(theme) {}

void HitDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (row >= form_.SearchHits.size()) return;
    const Tokens& tokens = theme_.Now();
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    painter->fillRect(option.rect, isSelected ? tokens.row : row % 2 == 1 ? tokens.zebra : tokens.surface);
    QRect room = option.rect.adjusted(kPadding, 0, -kPadding, 0);
    painter->setPen(tokens.text);
    if (index.column() == HitModel::kCheckWord) {
        const CheckWord check = form_.SearchHits[row].check;
        const bool isWrong = check == CheckWord::Wrong;
        painter->setPen(isWrong ? tokens.warn : tokens.text2);
        if (isWrong || check == CheckWord::Right) {
            painter->drawPixmap(
                room.left(), room.top() + (room.height() - kGlyphSize) / 2,
                GlyphPicture(isWrong ? Glyph::Differs : Glyph::Tick, isWrong ? tokens.warn : tokens.accent,
                             kGlyphSize, painter->device()->devicePixelRatioF()));
        }
        room.adjust(kGlyphSize + kPadding, 0, 0, 0);
    }
    painter->setFont(index.column() == HitModel::kCheckWord ? uiFont_ : codeFont_);
    const auto side = IsNumber(index.column()) ? Qt::AlignRight : Qt::AlignLeft;
    painter->drawText(room, Qt::AlignVCenter | Qt::TextSingleLine | side, index.data().toString());
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter->setPen(tokens.accent);
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
}

}  // namespace commtest
