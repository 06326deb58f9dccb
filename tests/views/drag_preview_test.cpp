#include "views/drag_preview.h"
#include "views/view_builders.h"

#include <gtest/gtest.h>
#include <string>
#include <variant>
#include <vector>

namespace tavrin {
namespace {

View labelled(View view, std::string label) {
    view.accessibilityLabel = std::move(label);
    return view;
}

std::string pictureIn(const DragPreview& preview) {
    if (const auto* icon = std::get_if<kinds::Icon>(&preview.picture))
        return icon->application->bundleIdentifier;
    const auto* symbol = std::get_if<kinds::Symbol>(&preview.picture);
    return symbol ? symbol->name : "none";
}

} // namespace

TEST(DragPreview, showsTheFirstPictureAndTheLabel) {
    struct Case {
        View dragged;
        std::string picture;
        std::string label;
    };

    const auto star = symbol("star", 12);
    const auto mail = icon({"com.apple.mail"}, 32);
    const std::vector<Case> cases{
        {row({mail, text("Mail"), star}), "com.apple.mail", "Mail"},
        {row({column({text("Deep"), star}), mail}), "star", "Deep"},
        {labelled(row({mail, text("Drawn")}), "Said"), "com.apple.mail", "Said"},
        {row({button("", nullptr, {.symbol = "pin"}), button("Move", nullptr)}), "none", "Move"},
        {text("Alone"), "none", "Alone"},
        {divider(), "none", ""},
    };
    for (const auto& c : cases) {
        const auto preview = dragPreviewOf(c.dragged);
        EXPECT_EQ(pictureIn(preview), c.picture) << c.label;
        EXPECT_EQ(preview.label, c.label);
    }
}

} // namespace tavrin
