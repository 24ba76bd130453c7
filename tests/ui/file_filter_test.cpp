#include "ui/file_filter.hpp"

#include <gtest/gtest.h>

#include <QDir>

namespace quorrel::test {
namespace {

TEST(FileFilter, MatchesWhateverTheCase) {
    const QStringList filters = NameFilters("HelpSet Files (*.hs)|*.hs|Pictures|*.gif;*.jpg");
    ASSERT_EQ(filters.size(), 2);
    EXPECT_EQ(filters[0], "HelpSet Files (*.[hH][sS])");
    EXPECT_EQ(filters[1], "Pictures (*.[gG][iI][fF] *.[jJ][pP][gG])");
    EXPECT_TRUE(QDir::match("*.[hH][sS]", "HELP.Hs"));
}

TEST(FileFilter, ProgramsHaveNoEndingHere) {
    EXPECT_EQ(NameFilters("Program Files (*.exe)|*.exe"), QStringList{"All files (*)"});
}

}  // namespace
}  // namespace quorrel::test
