#pragma once

#include <cstdint>
#include <functional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "runtime/text.h"

// Controls as plain values. Logic reads and writes them under their own names; a view binds each once and
// repaints where `Generation()` has moved on. Handlers are wired by app/.
namespace commtest {

using Handler = std::function<void()>;

inline void RunIfSet(const Handler& handler) {
    if (handler) handler();
}

// What a view asks of every control: has it changed since I looked?
class Control {
  public:
    std::uint64_t Generation() const { return generation_; }

  protected:
    void MarkDirty() { ++generation_; }

  private:
    std::uint64_t generation_ = 0;
};

// Whether a control is shown and whether the user may use it.
class Presence : public Control {
  public:
    bool Enabled() const { return enabled_; }
    bool Visible() const { return visible_; }
    void SetEnabled(bool enabled) {
        enabled_ = enabled;
        MarkDirty();
    }
    void SetVisible(bool visible) {
        visible_ = visible;
        MarkDirty();
    }

  private:
    bool enabled_ = true;
    bool visible_ = true;
};

// A text: an entry field, a label, a caption. Setting the text that it holds already changes nothing and
// fires nothing.
class TextControl : public Presence {
  public:
    TextControl() = default;
    explicit TextControl(Text text) : text_(std::move(text)) {}

    Handler Change;

    const Text& Value() const { return text_; }
    void Set(Text text);

  private:
    Text text_;
};

// A tick box. Its click runs when the value changes, by the user or by a routine.
class TickControl : public Presence {
  public:
    Handler Click;

    bool Value() const { return value_; }
    void Set(bool value);

  private:
    bool value_ = false;
};

// Option buttons of one group, by index; -1 while none is chosen. Choosing one always runs its click.
class OptionGroup : public Presence {
  public:
    explicit OptionGroup(int chosen = -1) : chosen_(chosen) {}

    std::function<void(int)> Click;
    std::vector<Text> Captions;

    int Chosen() const { return chosen_; }
    bool IsChosen(int index) const { return chosen_ == index; }
    void Choose(int index);

    // Marks an option without its click, for a routine that sets what the option means by itself.
    void Show(int index);

  private:
    int chosen_;
};

// A text with a drop-down list. The text may be one that is not in the list. The click runs only from the
// user or by a call.
class ListControl : public Presence {
  public:
    Handler Click;
    Handler Change;

    const Text& Value() const { return text_; }
    void Set(Text text);

    const std::vector<Text>& Items() const { return items_; }
    std::uint64_t Epoch() const { return epoch_; }  // moves on when the list was emptied
    void Add(Text item);
    void Clear();  // empties the list; the text stays

    // Index from 0 of the first entry of that text, -1 if there is none. The cost does not grow with the
    // list.
    int IndexOf(const Text& item) const;

    // The entry at an index from 0; error 9 outside the list.
    const Text& At(int index) const;

  private:
    Text text_;
    std::vector<Text> items_;
    std::uint64_t epoch_ = 0;
    std::unordered_map<Text, int> firstIndex_;
};

}  // namespace commtest
