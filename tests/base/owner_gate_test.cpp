#include "base/owner_gate.h"

#include <functional>
#include <gtest/gtest.h>
#include <optional>

namespace tavrin {

TEST(OwnerGate, workIsDroppedWithItsOwner) {
    int ran = 0;
    std::optional<OwnerGate> gate(std::in_place);
    const auto pass = gate->pass();
    const std::function<void()> work = gate->guarded([&ran] { ++ran; });
    const std::function<void()> ending = pass.guarded([&] {
        gate.reset();
        ++ran;
    });
    work();
    EXPECT_EQ(ran, 1);
    ending(); // work may end its owner, and is whole until it returns
    EXPECT_EQ(ran, 2);
    EXPECT_FALSE(pass.isOpen());
    work();
    ending();
    EXPECT_EQ(ran, 2);
}

TEST(OwnerGate, followsAnOwnerThatMoves) {
    OwnerGate first;
    const auto pass = first.pass();
    {
        const OwnerGate second(std::move(first));
        EXPECT_TRUE(pass.isOpen());
        EXPECT_TRUE(second.pass().isOpen());
        EXPECT_FALSE(first.pass().isOpen());
    }
    EXPECT_FALSE(pass.isOpen());
}

} // namespace tavrin
