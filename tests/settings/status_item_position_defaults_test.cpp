#include "settings/status_item_position_defaults.h"

#include <gtest/gtest.h>

namespace tavrin {
namespace {

TEST(StatusItemAutosaveNameTest, versionsAndTheirVariantsOnThisComputer) {
    EXPECT_EQ(StatusItemPositionDefaults::byHostAutosaveName("Skerrow.Main.v3"), "Skerrow.Main.v3_v6");
    EXPECT_EQ(StatusItemPositionDefaults::byHostAutosaveName("a_Bc_De"), "a_bc_De_v6");
    EXPECT_EQ(StatusItemPositionDefaults::byHostAutosaveName("a_"), "a__v6");
    EXPECT_EQ(StatusItemAutosaveName::version("Skerrow.Spacer.v12"), 12);
    EXPECT_EQ(StatusItemAutosaveName::version("Skerrow.Spacer.v12x"), std::nullopt);
    EXPECT_EQ(StatusItemAutosaveName::version("Skerrow.Main.v"), std::nullopt);
    EXPECT_EQ(StatusItemAutosaveName::version("Item-0"), std::nullopt);
}

} // namespace
} // namespace tavrin
