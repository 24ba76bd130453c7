#include "ui/file_filter.hpp"

#include <gtest/gtest.h>

namespace quorrel::test {
namespace {

TEST(FileFilter, MatchesWhateverTheCaseAndProgramsHaveNoEnding) {
    EXPECT_EQ(
        NameFilters("HelpSet Files (*.hs)|*.hs|Pictures|*.gif;*.jpg"),
        (QStringList{"HelpSet Files (*.[hH][sS])", "Pictures (*.[gG][iI][fF] *.[jJ][pP][gG])"}));
    EXPECT_EQ(NameFilters("Program Files (*.exe)|*.exe"), QStringList{"All files (*)"});
}

}  // namespace
}  // namespace quorrel::test
