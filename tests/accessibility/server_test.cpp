#include "support/mac_fixture.h"

#include <cmath>

namespace mac_model {

namespace {

using tavrin::AccessibilityElement;
using tavrin::Seconds;
using Error = tavrin::AccessibilityError;

MenuItemSpec menuItem(const std::string& title) {
    MenuItemSpec item;
    item.title = title;
    return item;
}

DesktopFile talkative() {
    auto desktop = plainDesktop();
    auto item = itemSpec("sync", 28, 100);
    item.opens = Opens::Menu;
    item.menu = {menuItem("Sync Now"), menuItem("More")};
    item.menu[1].items = {menuItem("Deep")};
    item.nesting = 2;
    item.description = "Sync";
    auto shy = itemSpec("shy", 20, 50);
    shy.accessible = false;
    auto disabled = itemSpec("", 20, 60);
    disabled.enabled = false;
    disabled.opens = Opens::Popover;
    desktop.applications = {applicationSpec("org.example.sync", 501, {item, shy}),
                            applicationSpec("org.example.plain", 502, {disabled}),
                            applicationSpec("org.example.mute", 503),
                            applicationSpec("org.example.bare", 504)};
    desktop.applications[2].accessibility = AccessibilitySupport::None;
    desktop.applications[3].policy = Policy::Regular;
    return desktop;
}

} // namespace

class AccessibilityServerTest : public MacTest {
  protected:
    tavrin::Accessibility& ax() { return platform().accessibility; }

    AccessibilityElement application(int process) { return ax().application(process); }

    AccessibilityElement elementAt(const AccessibilityElement& from, std::string_view name) {
        return std::get<AccessibilityElement>(ax().attribute(from, name).value());
    }

    std::vector<AccessibilityElement> children(const AccessibilityElement& element) {
        return std::get<std::vector<AccessibilityElement>>(ax().attribute(element, "AXChildren").value());
    }

    AccessibilityElement firstDown(AccessibilityElement element, int levels) {
        while (levels-- > 0) element = children(element).front();
        return element;
    }

    std::string text(const AccessibilityElement& element, std::string_view name) {
        return std::get<std::string>(ax().attribute(element, name).value());
    }

    Error failure(int process, std::string_view name) {
        return ax().attribute(application(process), name).error();
    }

    Seconds costOf(const std::function<void()>& act) {
        const auto before = scheduler.now();
        act();
        return scheduler.now() - before;
    }
};

TEST_F(AccessibilityServerTest, treeLeadsThroughGroupsToItemsMenusAndBack) {
    bootAndStart(talkative());
    const auto extras = elementAt(application(501), "AXExtrasMenuBar");
    EXPECT_EQ(children(extras).size(), 1U) << "the other item is in no tree";
    const auto item = firstDown(extras, 3);
    EXPECT_EQ(text(item, "AXRole"), "AXMenuBarItem");
    EXPECT_EQ(text(item, "AXSubrole"), "AXMenuExtra");
    EXPECT_EQ(text(item, "AXTitle"), "");
    EXPECT_EQ(text(item, "AXDescription"), "Sync");
    EXPECT_EQ(ax().attribute(item, "AXHelp").error(), Error::NoValue);
    EXPECT_EQ(ax().attribute(item, "AXNonsense").error(), Error::AttributeUnsupported);
    EXPECT_EQ(ax().attribute(item, "AXPosition"), tavrin::AttributeResult(tavrin::Point{1444, 3}));
    EXPECT_EQ(ax().attribute(item, "AXSize"), tavrin::AttributeResult(tavrin::Size{28, 24}));

    const auto deep = children(firstDown(children(firstDown(item, 1))[1], 1)).front();
    EXPECT_EQ(text(deep, "AXTitle"), "Deep");
    auto above = deep;
    for (int levels = 0; levels < 7; ++levels) above = elementAt(above, "AXParent");
    EXPECT_EQ(above, extras);
    EXPECT_EQ(above.hash(), extras.hash());
    EXPECT_EQ(elementAt(extras, "AXParent"), application(501));

    const auto titles = children(elementAt(application(504), "AXMenuBar"));
    EXPECT_EQ(text(titles[1], "AXTitle"), "org.example.bare");
    EXPECT_EQ(failure(501, "AXMenuBar"), Error::NoValue) << "an accessory application shows no menus";
    EXPECT_EQ(
        ax().attribute(children(elementAt(application(502), "AXExtrasMenuBar"))[0], "AXIdentifier").error(),
        Error::AttributeUnsupported);
}

TEST_F(AccessibilityServerTest, errorsFollowTheUncertainAnswers) {
    for (const bool isOther : {false, true}) {
        auto desktop = talkative();
        if (isOther) desktop.model.emptyExtras = EmptyExtras::Unsupported;
        if (isOther) desktop.model.revokedAccess = RevokedAccess::TimesOut;
        if (isOther) desktop.model.closedMenus = ClosedMenus::Empty;
        bootAndStart(desktop);
        EXPECT_EQ(failure(504, "AXExtrasMenuBar"), isOther ? Error::AttributeUnsupported : Error::NoValue);
        EXPECT_EQ(failure(503, "AXRole"), Error::NotImplemented);
        EXPECT_EQ(failure(999, "AXRole"), Error::InvalidElement);
        const auto menu = firstDown(elementAt(application(501), "AXExtrasMenuBar"), 4);
        EXPECT_EQ(children(menu).empty(), isOther);

        mac->permission().setTrusted(false);
        const auto cost = costOf(
            [&] { EXPECT_EQ(failure(501, "AXRole"), isOther ? Error::CannotComplete : Error::ApiDisabled); });
        EXPECT_EQ(cost, Seconds{isOther ? 6 : 0});
        EXPECT_TRUE(ax().attribute(application(platform().application.processIdentifier()), "AXRole"));
        mac->program().crash();
        mac->program().start();
        settle();
        EXPECT_EQ(failure(501, "AXRole"), Error::ApiDisabled) << "this process has lost nothing";
    }
}

TEST_F(AccessibilityServerTest, messagesCostTheReceiversTimeAndTheReferencesTimeout) {
    bootAndStart(talkative());
    const auto hasty = application(501);
    ax().setMessagingTimeout(hasty, Seconds{0.5});
    constexpr std::string_view names[] = {"AXRole", "AXTitle", "AXHelp"};
    EXPECT_NEAR(costOf([&] { EXPECT_EQ(ax().attributes(hasty, names)->size(), 3U); }).count(), 0.0003, 1e-9);
    EXPECT_EQ(mac->statistics().messages.at("org.example.sync"), 1U);

    ASSERT_TRUE(mac->processes().hang("org.example.sync"));
    EXPECT_NEAR(
        costOf([&] { EXPECT_EQ(ax().attribute(hasty, "AXRole").error(), Error::CannotComplete); }).count(),
        0.5, 1e-9);
    EXPECT_NEAR(costOf([&] { EXPECT_FALSE(ax().attribute(application(501), "AXRole")); }).count(), 6, 1e-9)
        << "an equal reference has its own time-out";
    scheduler.callInWorldAfter(Seconds{1}, [&] { EXPECT_TRUE(mac->processes().resume("org.example.sync")); });
    EXPECT_NEAR(costOf([&] { EXPECT_TRUE(ax().attribute(application(501), "AXRole")); }).count(), 1, 0.06);

    ASSERT_TRUE(mac->processes().setLatency("org.example.sync", Seconds{2}));
    EXPECT_NEAR(costOf([&] { EXPECT_FALSE(ax().attribute(hasty, "AXRole")); }).count(), 0.5, 1e-9);
    scheduler.callInWorldAfter(Seconds{1}, [&] { EXPECT_TRUE(mac->processes().quit("org.example.sync")); });
    EXPECT_EQ(failure(501, "AXRole"), Error::CannotComplete) << "it ended while the message was under way";
    EXPECT_EQ(failure(501, "AXRole"), Error::InvalidElement);
}

TEST_F(AccessibilityServerTest, closingAMenuEndsItsElementsLife) {
    bootAndStart(talkative());
    const auto item = firstDown(elementAt(application(501), "AXExtrasMenuBar"), 3);
    const auto menu = firstDown(item, 1);
    const auto identifier = mac->statusItems().itemsOf(501).front()->identifier;
    mac->statusItems().setOpen(identifier, true);
    EXPECT_EQ(firstDown(item, 1), menu);
    EXPECT_EQ(ax().attribute(item, "AXSelected"), tavrin::AttributeResult(true));
    mac->statusItems().setOpen(identifier, false);
    EXPECT_EQ(ax().attribute(menu, "AXRole").error(), Error::InvalidElement);
    EXPECT_NE(firstDown(item, 1), menu);
}

TEST_F(AccessibilityServerTest, actionsReachTheScreenWhenTheyCan) {
    bootAndStart(talkative());
    const auto isOpen = [&](int process) { return mac->statusItems().itemsOf(process).front()->isOpen; };
    const auto item = firstDown(elementAt(application(501), "AXExtrasMenuBar"), 3);
    EXPECT_EQ(ax().perform(item, "AXShowMenu").error(), Error::ActionUnsupported);
    EXPECT_TRUE(ax().perform(item, "AXPress"));
    EXPECT_FALSE(isOpen(501)) << "first the message is answered";
    settle();
    EXPECT_TRUE(isOpen(501));
    EXPECT_TRUE(ax().perform(firstDown(item, 2), "AXPress"));
    const auto disabled = firstDown(elementAt(application(502), "AXExtrasMenuBar"), 1);
    EXPECT_TRUE(ax().perform(disabled, "AXPress")) << "answered, and nothing happens";
    settle();
    EXPECT_FALSE(isOpen(501) || isOpen(502));
    const auto chosen = mac->content().chosen.drain();
    ASSERT_EQ(chosen.size(), 1U);
    EXPECT_EQ(chosen.front().path, std::vector<std::string>{"Sync Now"});
}

TEST_F(AccessibilityServerTest, trustMayLagBehindItsNotice) {
    for (const auto notice : {PermissionNotice::Prompt, PermissionNotice::Stale}) {
        auto desktop = talkative();
        desktop.accessibilityTrusted = false;
        desktop.model.permissionNotice = notice;
        bootAndStart(desktop);
        std::vector<bool> told;
        const auto watch = ax().onTrustListChanged([&] { told.push_back(ax().isTrusted()); });
        mac->permission().setTrusted(true);
        settle();
        EXPECT_EQ(told, std::vector<bool>{notice == PermissionNotice::Prompt});
        scheduler.advance(Permission::staleTime);
        EXPECT_TRUE(ax().isTrusted());
    }
}

TEST_F(AccessibilityServerTest, onlyTheFrontmostApplicationCanBeSet) {
    bootAndStart(talkative());
    const auto bare = application(504);
    EXPECT_TRUE(ax().setFlag(bare, "AXFrontmost", true));
    scheduler.advance(Seconds{0.1});
    EXPECT_EQ(ax().attribute(bare, "AXFrontmost"), AttributeValue(true));
    EXPECT_EQ(ax().setFlag(bare, "AXHidden", true).error(), Error::AttributeUnsupported);
    EXPECT_EQ(ax().setFlag(application(503), "AXFrontmost", true).error(), Error::NotImplemented);
}

} // namespace mac_model
