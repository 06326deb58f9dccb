#include "pins/store/pinned_status_item_reference.h"
#include "seam/system/text_icu.h"

#include <gtest/gtest.h>

namespace tavrin {

namespace {

using Candidate = PinnedStatusItemReference::Candidate;

struct Case {
    const char* situation;
    PinnedStatusItemReference reference;
    std::vector<Candidate> candidates;
    std::optional<std::size_t> expected;
};

const Candidate nothing{};

const std::vector<Case> cases{
    {"no item", {"a", "A", 0}, {}, {}},
    {"the only item, whatever it is", {"a", "A", 4}, {{"b", "B"}}, 0},
    {"by identifier, exactly", {"b", "A", 0}, {{"B", "A"}, {"b", "Z"}}, 1},
    {"two with the identifier, one with the label", {"a", "x", 0}, {{"a", "Y"}, {"a", "X…"}}, 1},
    {"two with the identifier and the label", {"a", "x", 0}, {{"a", "X"}, {"a", "x"}}, {}},
    {"the identifier is gone, the label isn't", {"a", "x", 0}, {{"b", {}}, {{}, "X"}}, 1},
    {"by label", {{}, "Wi–Fi", 0}, {nothing, {{}, "wi-fi"}}, 1},
    {"two with the label", {{}, "x", 1}, {{{}, "X"}, {{}, "x"}}, {}},
    {"labels of nothing match nobody", {{}, "…", 1}, {{{}, "…"}, {{}, "x"}}, {}},
    {"an identifier never falls back to the index", {"a", {}, 1}, {nothing, nothing}, {}},
    {"by index", {{}, {}, 1}, {{"a", "A"}, {"b", "B"}}, 1},
    {"index beyond the last", {{}, {}, 2}, {nothing, nothing}, {}},
    {"index below the first", {{}, {}, -1}, {nothing, nothing}, {}},
};

} // namespace

TEST(PinnedStatusItemReference, selectsRatherNoneThanAnyOfSeveral) {
    const auto text = mac_model::makeIcuText();
    for (const auto& [situation, reference, candidates, expected] : cases)
        EXPECT_EQ(reference.select(candidates, *text), expected) << situation;
}

} // namespace tavrin
