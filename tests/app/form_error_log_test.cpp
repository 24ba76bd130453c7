#include "app/form_error_log.hpp"

#include <filesystem>

#include "support/project_fixture.hpp"

namespace quorrel::test {
namespace {

class ErrorLogTest : public ProjectFixture {
  protected:
    void SetUp() override {
        folder.Write("p/guide.hhp", "[OPTIONS]\r\nTitle=Guide\r\nLanguage=0x419 Russian\r\n\r\n[FILES]\r\n");
        Open("p/guide.hhp");
    }
};

TEST_F(ErrorLogTest, TheMessagesAreOnlyRead) {
    folder.Write("p/compiler.log", "one\ntwo\r\n\r\nthree");
    FormErrorLog form(main, ErrorLogMode::kMessages);
    EXPECT_EQ(form.Caption, "Compiler Messages");
    EXPECT_EQ(form.Text1.Text(), "one\r\ntwo\r\n\r\nthree\r\n");
    EXPECT_TRUE(form.Text1.Locked());
    EXPECT_FALSE(form.Command2.Visible() || form.Command3.Visible());
    form.Command1_Click();
    EXPECT_TRUE(form.closed);
}

TEST_F(ErrorLogTest, AStyleSheetIsEditedInItsEncoding) {
    folder.Write("p/htmlhelp.css", "/* \xCF */\np {}\n");
    screen.ExpectForm("FormErrorLog", [&](Form& shown) {
        auto& form = dynamic_cast<FormErrorLog&>(shown);
        EXPECT_EQ(form.Text1.Text(), "/* \u041F */\r\np {}\r\n");
        EXPECT_FALSE(form.Text1.Locked() || form.Command1IsDefault);
        EXPECT_TRUE(form.Command2.Visible() && form.Command3.Visible());
        form.Text1.Text = std::string("/* \u041F\u041F */\nq {}\r\n");
        form.Command1_Click();
    });
    editcssfile_Click(main);
    EXPECT_EQ(folder.Read("p/htmlhelp.css"), "/* \xCF\xCF */\r\nq {}\r\n");
    EXPECT_FALSE(folder.Exists("p/htmlhelp.css.tmp") || folder.Exists("p/htmlhelp.css.bak"));
}

TEST_F(ErrorLogTest, TheFileIsThatOfModeAndEdition) {
    const std::tuple<ErrorLogMode, bool, const char*, const char*> cases[] = {
        {ErrorLogMode::kStyleSheet, true, "Style Sheet File: javahelp.css", "p/javahelp.css"},
        {ErrorLogMode::kStyleSheet, false, "Style Sheet File: htmlhelp.css", "p/htmlhelp.css"},
        {ErrorLogMode::kScript, false, "JavaScript File: master.js", "p/master.js"}};
    for (const auto& [mode, javahelp, caption, file] : cases) {
        main.settings.is_javahelp_edition = javahelp;
        FormErrorLog cancelled(main, mode);
        EXPECT_EQ(cancelled.Caption, caption);
        cancelled.Text1.Text = std::string("x");
        cancelled.Command2_Click();
        EXPECT_FALSE(folder.Exists(file));
        FormErrorLog form(main, mode);
        form.Text1.Text = std::string("x");
        form.Command1_Click();
        EXPECT_EQ(folder.Read(file), "x");
    }
}

TEST_F(ErrorLogTest, AFailureIsToldAndKeepsTheText) {
    std::filesystem::create_directories(folder.Native("p/htmlhelp.css/x"));
    FormErrorLog form(main, ErrorLogMode::kStyleSheet);
    form.Text1.Text = std::string("x");
    screen.ExpectMessage("Error occurred while saving document: Access denied.");
    form.Command1_Click();
    EXPECT_FALSE(form.closed);
}

}  // namespace
}  // namespace quorrel::test
