// The properties that every control model has.
#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "platform/controls/signal.hpp"

namespace quorrel {

/// A value that tells its owner's signal when it changes.
template <typename T>
class Property {
  public:
    explicit Property(const Signal<>& changed, T value = T{})
        : changed_(changed), value_(std::move(value)) {}
    Property(const Property&) = delete;

    Property& operator=(const Property& other) { return *this = other.value_; }
    Property& operator=(T value) {
        if (value == value_) return *this;
        value_ = std::move(value);
        changed_.Emit();
        return *this;
    }
    operator const T&() const { return value_; }
    [[nodiscard]] const T& operator()() const { return value_; }

  private:
    const Signal<>& changed_;
    T value_;
};

/// A control of the window or of a dialog: what the logic sets and the toolkit shows.
struct Control {
    Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    Signal<> changed;
    /// The keyboard is to go to the control.
    Signal<> focus_wanted;
    void SetFocus() const { focus_wanted.Emit(); }

    Property<bool> Enabled{changed, true};
    Property<bool> Visible{changed, true};
    Property<std::string> Caption{changed};
    Property<std::string> ToolTipText{changed};
};

struct TextBox : Control {
    Property<std::string> Text{changed};
    Property<bool> Locked{changed};  // shows its text and takes none
    std::size_t max_length = 0;      // characters that the user can bring it to; 0 for any number
};

struct CheckBox : Control {
    Property<bool> Value{changed};
};

struct MenuEntry : Control {
    Property<bool> Checked{changed};
};

}  // namespace quorrel
