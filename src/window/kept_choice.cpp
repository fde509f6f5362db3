#include "window/kept_choice.h"

#include <QStringList>

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr TextView kSoftSetting = u"SoftSeting";  // Q180: spelled so
constexpr int kFields = 6;                        // interval, address, count, protocol, instrument, mode
constexpr int kProtocol = 3;
constexpr int kInstrument = 4;

QStringList FieldsOf(const Text& text) { return QString::fromStdU16String(text).split(u' '); }

Text WithFormerChoice(const Text& value, const Text& former) {
    QStringList fields = FieldsOf(value);
    const QStringList formerFields = FieldsOf(former);
    if (fields.size() != kFields || formerFields.size() != kFields) return value;
    for (const int field : {kProtocol, kInstrument}) fields[field] = formerFields[field];
    return fields.join(u' ').toStdU16String();
}

}  // namespace

std::optional<Text> KeptChoice::Read(const Text& key) const {
    const auto tried = tried_.find(key);
    return tried != tried_.end() ? tried->second : settings_->Read(key);
}

void KeptChoice::Save(const Text& key, const Text& value) {
    if (isTrial_) {
        tried_[key] = value;
        return;
    }
    const auto former = settings_->Read(key);
    const bool keeps = key == kSoftSetting && former && !catalogue_.IsOpen();
    settings_->Save(key, keeps ? WithFormerChoice(value, *former) : value);
}

}  // namespace commtest
