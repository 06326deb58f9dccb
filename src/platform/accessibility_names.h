#pragma once

#include <string_view>

/// Attribute, role and action names of HIServices' AXAttributeConstants.h, AXRoleConstants.h and
/// AXActionConstants.h.
namespace tavrin::ax {

inline constexpr std::string_view extrasMenuBar = "AXExtrasMenuBar";
inline constexpr std::string_view menuBar = "AXMenuBar";
inline constexpr std::string_view shownMenu = "AXShownMenuUIElement";
inline constexpr std::string_view children = "AXChildren";
inline constexpr std::string_view windows = "AXWindows";
inline constexpr std::string_view frontmost = "AXFrontmost";
inline constexpr std::string_view role = "AXRole";
inline constexpr std::string_view subrole = "AXSubrole";
inline constexpr std::string_view identifier = "AXIdentifier";
inline constexpr std::string_view title = "AXTitle";
inline constexpr std::string_view description = "AXDescription";
inline constexpr std::string_view value = "AXValue";
inline constexpr std::string_view help = "AXHelp";
inline constexpr std::string_view enabled = "AXEnabled";
inline constexpr std::string_view position = "AXPosition";
inline constexpr std::string_view size = "AXSize";
inline constexpr std::string_view commandCharacter = "AXMenuItemCmdChar";
inline constexpr std::string_view commandModifiers = "AXMenuItemCmdModifiers";
inline constexpr std::string_view markCharacter = "AXMenuItemMarkChar";

inline constexpr std::string_view menuBarItemRole = "AXMenuBarItem";
inline constexpr std::string_view groupRole = "AXGroup";
inline constexpr std::string_view buttonRole = "AXButton";
inline constexpr std::string_view menuExtraSubrole = "AXMenuExtra";
inline constexpr std::string_view menuRole = "AXMenu";
inline constexpr std::string_view menuItemRole = "AXMenuItem";
inline constexpr std::string_view checkBoxRole = "AXCheckBox";
inline constexpr std::string_view switchRole = "AXSwitch";
inline constexpr std::string_view toggleRole = "AXToggle";
inline constexpr std::string_view sliderRole = "AXSlider";
inline constexpr std::string_view radioButtonRole = "AXRadioButton";
inline constexpr std::string_view incrementorRole = "AXIncrementor";

inline constexpr std::string_view pressAction = "AXPress";
inline constexpr std::string_view showMenuAction = "AXShowMenu";
inline constexpr std::string_view cancelAction = "AXCancel";

} // namespace tavrin::ax
