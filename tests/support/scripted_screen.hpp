// The tests' screen: answers from a list, and fails on a question that nobody expected.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/screen.hpp"

namespace quorrel::test {

class ScriptedScreen : public Screen {
  public:
    ~ScriptedScreen() override {
        EXPECT_TRUE(answers_.empty()) << "a question was expected and not asked";
        EXPECT_TRUE(files_.empty()) << "a file dialog was expected and not shown";
        EXPECT_TRUE(forms_.empty()) << "form expected and not shown: " << forms_.front().first;
    }

    void ExpectMessage(std::string text, MessageAnswer answer = MessageAnswer::kOk) {
        answers_.push_back({std::move(text), answer, false});
    }
    /// A message with this in it, whatever else it says.
    void ExpectMessageWith(std::string part, MessageAnswer answer = MessageAnswer::kOk) {
        answers_.push_back({std::move(part), answer, true});
    }
    void ExpectFileDialog(std::string answer) { files_.push_back(std::move(answer)); }
    /// `work` gets the form as it is shown.
    void ExpectForm(std::string name, std::function<void(Form&)> work) {
        forms_.emplace_back(std::move(name), std::move(work));
    }
    [[nodiscard]] const FileDialog& LastFileDialog() const { return last_dialog_; }

    std::string clipboard;

    void Show(std::unique_ptr<Form> form) override {
        ShowModal(*form);
        beside_.push_back(std::move(form));
    }
    void ShowModal(Form& form) override {
        if (forms_.empty() || forms_.front().first != form.Name()) {
            ADD_FAILURE() << "unexpected form " << form.Name();
        } else {
            const auto work = std::move(forms_.front().second);
            forms_.pop_front();
            work(form);
        }
        form.Unload();
    }
    MessageAnswer ShowMessage(const Message& message) override {
        if (answers_.empty()) {
            ADD_FAILURE() << "unexpected message: " << message.text;
            return MessageAnswer::kCancel;
        }
        const Answer expected = std::move(answers_.front());
        answers_.pop_front();
        if (!expected.is_part || message.text.find(expected.text) == std::string::npos) {
            EXPECT_EQ(message.text, expected.text);
        }
        return expected.answer;
    }
    std::string ChooseFile(const FileDialog& dialog) override {
        last_dialog_ = dialog;
        if (files_.empty()) {
            ADD_FAILURE() << "unexpected file dialog: " << dialog.title;
            return {};
        }
        std::string answer = files_.front();
        files_.pop_front();
        return answer;
    }
    void SetPointer(Pointer) override {}
    void DoEvents() override {}
    void Beep() override {}
    void SetClipboardText(std::string_view text) override { clipboard = text; }

  private:
    struct Answer {
        std::string text;
        MessageAnswer answer;
        bool is_part;
    };

    std::deque<Answer> answers_;
    std::deque<std::string> files_;
    std::deque<std::pair<std::string, std::function<void(Form&)>>> forms_;
    std::vector<std::unique_ptr<Form>> beside_;
    FileDialog last_dialog_;
};

}  // namespace quorrel::test
