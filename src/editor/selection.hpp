#pragma once
namespace quorrel {
struct MainForm;
inline void SaveSelection(MainForm&) {}
inline void RestoreSelection(MainForm&) {}
}  // namespace quorrel
