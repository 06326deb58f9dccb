#include "pins/store/uuid.h"

#include <gtest/gtest.h>
#include <set>

namespace tavrin {

namespace {

/// Every bit set first, then none, then other numbers.
class ExtremesFirst final : public Randomness {
  public:
    std::uint64_t number() override {
        if (++asked_ <= 4) return asked_ <= 2 ? ~std::uint64_t{0} : 0;
        return asked_ * 0x9E3779B97F4A7C15;
    }

  private:
    std::uint64_t asked_ = 0;
};

} // namespace

TEST(Uuid, isRandomOfVersionFour) {
    ExtremesFirst randomness;
    EXPECT_EQ(Uuid::create(randomness).text(), "FFFFFFFF-FFFF-4FFF-BFFF-FFFFFFFFFFFF");
    EXPECT_EQ(Uuid::create(randomness).text(), "00000000-0000-4000-8000-000000000000");
    std::set<Uuid> seen;
    for (int i = 0; i < 100; ++i) {
        const auto uuid = Uuid::create(randomness);
        EXPECT_TRUE(seen.insert(uuid).second);
        EXPECT_EQ(Uuid::from(uuid.text()), uuid);
    }
}

} // namespace tavrin
