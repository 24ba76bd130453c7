// What the program is.
#pragma once

class QWidget;

namespace quorrel {

struct MainForm;

void ShowAbout(const MainForm& main, QWidget* parent);

}  // namespace quorrel
