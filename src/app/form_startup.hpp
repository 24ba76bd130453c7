// The first dialog of a run: the recent projects.
#pragma once

#include "platform/controls/list_view.hpp"
#include "platform/screen.hpp"

namespace quorrel {

struct MainForm;

/// Offers the recent projects of the edition, as the settings file has them.
class FormStartup : public Form {
  public:
    static constexpr std::string_view kCaption = "Open/Create Help Project";
    static constexpr int kLocation = 1;  // cell of a row: the project's path

    explicit FormStartup(MainForm& main);
    [[nodiscard]] std::string_view Name() const override { return "FormStartup"; }

    ListView ListProjects{2};
    Control Command1;  // a new project
    Control Command2;  // "Ok"
    Control Command3;  // "Cancel"
    Control Command4;  // "More Projects..."

    void ListProjects_Click();
    void ListProjects_DblClick() { Command2_Click(); }
    void Command1_Click();
    void Command2_Click();
    void Command3_Click() { closed = true; }
    void Command4_Click();
    void Unload() override;

    [[nodiscard]] std::string NativePath(const ListRow& row) const;

  private:
    void CloseIfOpened();
    MainForm& main_;
};

}  // namespace quorrel
