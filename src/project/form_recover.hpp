// The offer of work that an earlier run had not saved.
#pragma once

#include <string>
#include <vector>

#include "platform/controls/control.hpp"
#include "platform/screen.hpp"

namespace quorrel {

/// One piece of that work.
struct LeftWork {
    std::string name;  // the topic's path as the user writes it, or what the list is
    std::string when;  // it was kept, empty where that is not known
    std::string note;  // what is to be known before it is taken back
    bool is_wanted = true;
};

class FormRecover : public Form {
  public:
    static constexpr std::string_view kCaption = "Unsaved Work";
    static constexpr std::string_view kText =
        "The program did not come to its end the last time, and this was not saved. Tick what you "
        "want to go on with. The rest is put aside, not deleted.";

    explicit FormRecover(std::vector<LeftWork> found) : works(std::move(found)) {}
    [[nodiscard]] std::string_view Name() const override { return "FormRecover"; }

    std::vector<LeftWork> works;
    /// False where the author has left the question for another time.
    bool is_decided = false;

    void OKButton_Click() { is_decided = closed = true; }
    void CancelButton_Click() { closed = true; }
};

}  // namespace quorrel
