#include "project/form_new_folder.hpp"

#include "app/main_form.hpp"
#include "platform/text.hpp"
#include "project/form_new_topic.hpp"

namespace quorrel {

FormNewFolder::FormNewFolder(MainForm& main, FormNewTopic& topic) : main_(main), topic_(topic) {
    OKButton.Enabled = false;
    Text1.changed.Connect([this] { OKButton.Enabled = !Text1.Text().empty(); });
}

void FormNewFolder::OKButton_Click() {
    const Trap trap(main_.log, "FormNewFolder OKButton_Click: ");
    const std::string name = ReplaceAll(Text1.Text(), "/", "\\");
    std::string folder = topic_.Dir1.Path() + "\\" + name;
    // Steps to the folder above are taken here: what the path says is where the topics go.
    if (Contains(name, "..")) folder = main_.files.WindowsPath(main_.files.NativePath(folder));
    if (!trap([&] { MakeFolder(main_.files, folder); })) {
        main_.screen.ShowMessage({"The folder " + main_.files.NativePath(folder) +
                                      " could not be made.\r\n\r\n" + main_.log.LastLine(),
                                  main_.settings.APP_NAME, MessageButtons::kOk,
                                  MessageIcon::kExclamation});
        return Text1.SetFocus();
    }
    topic_.SetFolder(std::move(folder));
    closed = true;
}

std::string FormNewFolder::NativeParent() const {
    return main_.files.NativePath(topic_.Dir1.Path());
}

}  // namespace quorrel
