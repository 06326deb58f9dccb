#include "platform/hot_keys.h"
#include "shortcuts/carbon_hot_key_registrar.h"
#include "shortcuts/system_shortcuts.h"
#include "shortcuts/toggle_shortcut_controller.h"
#include "shortcuts/toggle_shortcut_store.h"
#include "support/mac_fixture.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace mac_model {
namespace {

using tavrin::CarbonHotKeyRegistrar;
using tavrin::HotKeyShortcut;
using tavrin::ToggleShortcutController;
using tavrin::ToggleShortcutStore;
using Log = std::vector<std::string>;

constexpr HotKeyShortcut optionK{40, tavrin::optionKeyFlag};
constexpr HotKeyShortcut optionL{37, tavrin::optionKeyFlag};
constexpr auto usual = ToggleShortcutStore::defaultShortcut;

class HotKeysTest : public MacTest {
  protected:
    void SetUp() override { bootAndStart(plainDesktop()); }

    void TearDown() override {
        controller.reset();
        mac.reset();
    }

    bool press(const HotKeyShortcut& shortcut) {
        const bool isTaken = mac->hotKeys().press({shortcut.keyCode(), shortcut.modifierFlags()});
        settle();
        return isTaken;
    }

    void take(const HotKeyShortcut& shortcut, bool isExclusive = true, bool stopsPresses = false) {
        mac->hotKeys().set({shortcut.keyCode(), {Modifier::Option}, true, isExclusive, stopsPresses});
    }

    void giveBack(const HotKeyShortcut& shortcut) {
        mac->hotKeys().set({shortcut.keyCode(), {Modifier::Option}, false, true, false});
    }

    ToggleShortcutController& makeController() {
        controller = std::make_unique<ToggleShortcutController>(ToggleShortcutStore(platform().defaults),
                                                                registrars().make(),
                                                                [this] { log.push_back("toggle"); });
        return *controller;
    }

    tavrin::HotKeyRegistrars& registrars() {
        if (!registrars_) registrars_.emplace(platform().hotKeys);
        return *registrars_;
    }

    void store(tavrin::DefaultsValue value) {
        mac->preferences().set(mac->programDomain(), ToggleShortcutStore::key, std::move(value));
    }

    std::optional<tavrin::DefaultsValue> stored() {
        return mac->preferences().value(mac->programDomain(), ToggleShortcutStore::key);
    }

    std::string message() { return controller->errorMessage().value_or("none"); }

    Log log;
    std::unique_ptr<ToggleShortcutController> controller;
    std::optional<tavrin::HotKeyRegistrars> registrars_;
};

const tavrin::DefaultsValue storedOptionK{tavrin::DefaultsDictionary{
    {"enabled", {true}}, {"keyCode", {std::int64_t{40}}}, {"modifiers", {std::int64_t{0x80000}}}}};

} // namespace

TEST_F(HotKeysTest, registrarsHearTheirOwnKeysAndShareThemWithOthers) {
    const auto first = registrars().make();
    const auto second = registrars().make();
    first->onPress = [&] { log.push_back("first"); };
    second->onPress = [&] { log.push_back("second"); };
    ASSERT_TRUE(first->registerShortcut(usual));
    ASSERT_TRUE(second->registerShortcut(optionK));
    EXPECT_FALSE(second->registerShortcut(usual)) << "this process has it already";
    EXPECT_FALSE(press(optionK)) << "the one before is gone also when the new one is refused";
    take(optionK, false);
    ASSERT_TRUE(second->registerShortcut(optionK));
    press(usual);
    press(optionK);
    EXPECT_FALSE(press(optionL));
    EXPECT_EQ(std::exchange(log, {}), (Log{"first", "second"}));
    ASSERT_TRUE(first->registerShortcut(optionL));
    EXPECT_FALSE(press(usual));
    first->unregister();
    EXPECT_FALSE(press(optionL));
    EXPECT_TRUE(log.empty());
}

TEST_F(HotKeysTest, aKeyThatAnotherProcessHasExclusivelyIsRefused) {
    const auto registrar = registrars().make();
    take(optionK);
    EXPECT_FALSE(registrar->registerShortcut(optionK));
    mac->hotKeys().set({optionK.keyCode(), {Modifier::Option}, false});
    EXPECT_TRUE(registrar->registerShortcut(optionK));
    take(optionK);
    EXPECT_TRUE(press(optionK)) << "who has it keeps it";
}

TEST_F(HotKeysTest, eventsOfOtherSignaturesGoOnToTheirHandlers) {
    auto& hotKeys = platform().hotKeys;
    const auto other = hotKeys.installPressHandler([&](const tavrin::HotKeyIdentifier& identifier) {
        log.push_back("other " + std::to_string(identifier.identifier));
        return tavrin::HotKeys::Handling::Handled;
    });
    const auto registrar = registrars().make();
    registrar->onPress = [&] { log.push_back("registrar"); };
    ASSERT_TRUE(registrar->registerShortcut(optionK));
    const auto foreign = hotKeys.registerHotKey(37, tavrin::carbonOptionKey, {0x41424344, 1});
    ASSERT_TRUE(foreign);
    press(optionL);
    press(optionK);
    EXPECT_EQ(log, (Log{"other 1", "registrar"}));
}

TEST_F(HotKeysTest, nothingIsHeardOfAKeyOnceItsRegistrarIsGone) {
    auto registrar = registrars().make();
    registrar->onPress = [&] { log.push_back("pressed"); };
    ASSERT_TRUE(registrar->registerShortcut(optionK));
    mac->hotKeys().press({optionK.keyCode(), optionK.modifierFlags()});
    registrar.reset(); // while the event waits
    settle();
    EXPECT_TRUE(log.empty());
    EXPECT_FALSE(press(optionK));
}

TEST_F(HotKeysTest, whatIsStoredBecomesAUsableShortcut) {
    using tavrin::DefaultsDictionary;
    using tavrin::DefaultsValue;
    const auto number = [](std::int64_t value) { return DefaultsValue{value}; };
    const auto entry = [&](DefaultsValue code, DefaultsValue modifiers) {
        return DefaultsValue{
            DefaultsDictionary{{"keyCode", std::move(code)}, {"modifiers", std::move(modifiers)}}};
    };
    const auto command = std::int64_t{0x100000};

    struct Case {
        std::string what;
        DefaultsValue stored;
        std::optional<HotKeyShortcut> expected;
    };

    const std::vector<Case> cases{
        {"no dictionary", number(4), usual},
        {"empty", {DefaultsDictionary{}}, usual},
        {"switched off", {DefaultsDictionary{{"enabled", {false}}}}, std::nullopt},
        {"switched off by a number", {DefaultsDictionary{{"enabled", number(0)}}}, std::nullopt},
        {"switched off with the rest",
         {DefaultsDictionary{{"enabled", {false}}, {"keyCode", number(7)}, {"modifiers", number(command)}}},
         std::nullopt},
        {"enabled of another type",
         {DefaultsDictionary{
             {"enabled", {std::string("no")}}, {"keyCode", number(7)}, {"modifiers", number(command)}}},
         HotKeyShortcut(7, tavrin::commandKeyFlag)},
        {"no modifiers", {DefaultsDictionary{{"enabled", {true}}, {"keyCode", number(7)}}}, usual},
        {"no key code", {DefaultsDictionary{{"modifiers", number(command)}}}, usual},
        {"a text as key code", entry({std::string("7")}, number(command)), usual},
        {"a fraction as key code", entry({7.5}, number(command)), usual},
        {"a boolean as modifiers", entry(number(7), {true}), usual},
        {"negative modifiers", entry(number(7), number(-1)), usual},
        {"Shift only", entry(number(7), number(0x20000)), usual},
        {"other bits only", entry(number(7), number(0x800000)), usual},
        {"other bits too", entry(number(7), number(command | 0x800100)),
         HotKeyShortcut(7, tavrin::commandKeyFlag)},
        {"key code above all", entry(number(70'000), number(command)),
         HotKeyShortcut(65'535, tavrin::commandKeyFlag)},
        {"key code below all", entry(number(-3), number(command)), HotKeyShortcut(0, tavrin::commandKeyFlag)},
        {"huge", entry(number(INT64_MAX), number(INT64_MAX)), HotKeyShortcut(65'535, 0x1E0000)},
    };
    const ToggleShortcutStore shortcuts(platform().defaults);
    EXPECT_EQ(shortcuts.load(), usual) << "nothing stored";
    for (const auto& c : cases) {
        store(c.stored);
        EXPECT_EQ(shortcuts.load(), c.expected) << c.what;
        EXPECT_EQ(stored(), c.stored) << c.what << ": reading changes nothing";
    }
}

TEST_F(HotKeysTest, aNewToggleShortcutReplacesTheOldOne) {
    makeController();
    EXPECT_EQ(stored(), std::nullopt) << "the default isn't written";
    press(usual);
    EXPECT_TRUE(controller->update(optionK));
    EXPECT_EQ(stored(), storedOptionK);
    EXPECT_FALSE(press(usual));
    press(optionK);
    EXPECT_EQ(log, (Log{"toggle", "toggle"}));
    controller->clear();
    EXPECT_FALSE(press(optionK));
    EXPECT_EQ(stored(), (tavrin::DefaultsValue{tavrin::DefaultsDictionary{{"enabled", {false}}}}));
    makeController();
    EXPECT_EQ(controller->shortcut(), std::nullopt);
}

TEST_F(HotKeysTest, aRefusedToggleShortcutLeavesTheOldOneInForce) {
    makeController();
    Log asked;
    controller->conflict = [&](const HotKeyShortcut& shortcut) -> std::optional<std::string> {
        asked.push_back(std::to_string(shortcut.keyCode()));
        if (shortcut == optionL) return "Already used by the pin \"Sync\".";
        return std::nullopt;
    };
    take(optionK);

    struct Case {
        HotKeyShortcut shortcut;
        std::string message;
    };

    for (const auto& c : {Case{optionK, "That shortcut is in use by another app"},
                          Case{optionL, "Already used by the pin \"Sync\"."}}) {
        controller->suspend();
        EXPECT_FALSE(controller->update(c.shortcut));
        EXPECT_EQ(message(), c.message);
        EXPECT_EQ(controller->shortcut(), usual);
        EXPECT_FALSE(controller->isSuspended());
        EXPECT_EQ(stored(), std::nullopt);
        EXPECT_TRUE(press(usual)) << "registered again after: " << c.message;
    }
    EXPECT_TRUE(controller->update(usual)) << "the same again";
    EXPECT_EQ(message(), "none");
    EXPECT_EQ(asked, (Log{"40", "37"})) << "the same shortcut is no conflict";
}

TEST_F(HotKeysTest, suspendingKeepsTheToggleShortcutFromActing) {
    makeController();
    controller->suspend();
    EXPECT_FALSE(press(usual));
    controller->resume();
    EXPECT_TRUE(press(usual));
    store(storedOptionK);
    makeController();
    controller->suspend();
    take(optionK);
    controller->resume();
    EXPECT_EQ(message(), "That shortcut is in use by another app");
    EXPECT_EQ(controller->shortcut(), optionK) << "it may be free again at the next launch";
}

TEST_F(HotKeysTest, theMessageGoesWhenTheShortcutCouldBeRegisteredAgain) {
    store(storedOptionK);
    const auto giveUpTyping = [&] {
        controller->suspend();
        controller->resume();
    };
    take(optionK);
    makeController();
    giveUpTyping();
    EXPECT_EQ(message(), "That shortcut is in use by another app");
    giveBack(optionK);
    giveUpTyping();
    EXPECT_EQ(message(), "none");
    EXPECT_TRUE(press(optionK));

    take(optionL);
    EXPECT_FALSE(controller->update(optionL));
    giveUpTyping();
    EXPECT_EQ(message(), "That shortcut is in use by another app") << "it is about the other shortcut";
}

TEST_F(HotKeysTest, aShortcutTakenAtLaunchIsReportedAndKept) {
    store(storedOptionK);
    take(optionK);
    makeController();
    EXPECT_EQ(message(), "That shortcut is in use by another app");
    EXPECT_TRUE(controller->update(optionL));
    EXPECT_EQ(message(), "none");
    EXPECT_TRUE(press(optionL));
}

TEST_F(HotKeysTest, ofTheSystemsShortcutsTheEnabledAndCompleteOnesCount) {
    mac->hotKeys().symbolicHotKeys = {
        {true, 49, 0x100},        {false, 50, 0x100}, {std::nullopt, 51, 0x100}, {true, std::nullopt, 0x100},
        {true, 52, std::nullopt}, {true, 20, 0x1B00}, {true, -1, 0x100},         {true, 0xFFFF, 0},
    };
    const auto found = tavrin::SystemShortcuts::enabledSymbolicHotKeys(platform().hotKeys);
    EXPECT_EQ(found, (std::vector{HotKeyShortcut(49, tavrin::commandKeyFlag), HotKeyShortcut(20, 0x1E0000),
                                  HotKeyShortcut(0xFFFF, 0)}));
}

TEST(SystemShortcuts, theStandardOnesHaveTheCommandKey) {
    const auto& standard = tavrin::SystemShortcuts::standardApp;
    const auto has = [&](tavrin::KeyCode key, tavrin::ModifierFlags flags) {
        return std::ranges::find(standard, HotKeyShortcut(key, flags)) != standard.end();
    };
    for (const tavrin::KeyCode key : {12, 13, 8, 9, 7, 6, 0, 1, 45, 31, 35, 17, 3, 4, 46, 43, 48, 49})
        EXPECT_TRUE(has(key, tavrin::commandKeyFlag)) << key;
    EXPECT_TRUE(has(6, tavrin::commandKeyFlag | tavrin::shiftKeyFlag));
    EXPECT_FALSE(has(6, tavrin::commandKeyFlag | tavrin::optionKeyFlag));
}

} // namespace mac_model
