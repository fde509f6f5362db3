#include "controls/value_controls.h"

#include "runtime/runtime_error.h"

namespace commtest {

void TextControl::Set(Text text) {
    if (text == text_) return;
    text_ = std::move(text);
    MarkDirty();
    RunIfSet(Change);
}

void TickControl::Set(bool value) {
    if (value == value_) return;
    value_ = value;
    MarkDirty();
    RunIfSet(Click);
}

void OptionGroup::Choose(int index) {
    Show(index);
    if (Click) Click(index);
}

void OptionGroup::Show(int index) {
    chosen_ = index;
    MarkDirty();
}

void ListControl::Set(Text text) {
    if (text == text_) return;
    text_ = std::move(text);
    MarkDirty();
    RunIfSet(Change);
}

void ListControl::Add(Text item) {
    firstIndex_.try_emplace(item, static_cast<int>(items_.size()));
    items_.push_back(std::move(item));
    MarkDirty();
}

void ListControl::Clear() {
    items_.clear();
    firstIndex_.clear();
    ++epoch_;
    MarkDirty();
}

int ListControl::IndexOf(const Text& item) const {
    const auto found = firstIndex_.find(item);
    return found == firstIndex_.end() ? -1 : found->second;
}

const Text& ListControl::At(int index) const {
    if (index < 0 || index >= static_cast<int>(items_.size())) throw RuntimeError(RuntimeError::kSubscript);
    return items_[static_cast<std::size_t>(index)];
}

}  // namespace commtest
