// The dialog that makes a project with its folders and its first topic.
#pragma once

#include <string>
#include <string_view>

#include "platform/controls/control.hpp"
#include "platform/screen.hpp"

namespace quorrel {

struct MainForm;

class FormCreateProject : public Form {
  public:
    static constexpr std::string_view kCaption = "Create New Project";
    static constexpr std::string_view kNotice =
        "IMPORTANT: You should place every project in its own directory.";

    explicit FormCreateProject(MainForm& main);
    [[nodiscard]] std::string_view Name() const override { return "FormCreateProject"; }

    Control LabelProject, LabelTitle;
    TextBox EditProject;  // the project file
    TextBox EditTitle;
    Control Command1;  // "Select >>"
    Control OKButton;

    /// The open project has changes that the author does not want. They go when another project
    /// takes its place.
    bool discards_changes = false;

    void Command1_Click();
    /// Nothing of the project file itself is written: that is left to the first save.
    void OKButton_Click();
    void CancelButton_Click() { closed = true; }

    /// The path as the user of this system writes it, and back.
    [[nodiscard]] std::string NativePath(std::string_view path) const;
    [[nodiscard]] std::string WindowsPath(std::string_view native) const;

  private:
    /// The files beside the project file that its first save would replace, on lines of their own.
    [[nodiscard]] std::string OtherFilesInTheWay() const;
    [[nodiscard]] bool MayReplace();
    [[nodiscard]] bool MakeProjectFolder();
    void NameFiles();
    void TakeOverFiles();
    void MakeImagesFolder();

    MainForm& main_;
};

/// The command that makes a project, after the question whether to save the open one.
void FileNewProject_Click(MainForm& main);

}  // namespace quorrel
