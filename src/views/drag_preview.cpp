#include "views/drag_preview.h"

namespace tavrin {

namespace {

using Picture = decltype(DragPreview::picture);

Picture pictureIn(const View& view) {
    return visitKind(
        view, [](const OneOf<kinds::Icon, kinds::Symbol> auto& picture) -> Picture { return picture; },
        [](const OneOf<kinds::Text, kinds::Progress> auto&) { return Picture{}; },
        [](const ControlKind auto&) { return Picture{}; }, [](const StackKind auto&) { return Picture{}; },
        [](const kinds::Scroll&) { return Picture{}; }, [](const GapKind auto&) { return Picture{}; });
}

Picture firstPicture(const View& view) {
    auto picture = pictureIn(view);
    for (auto child = view.children.begin(); picture.index() == 0 && child != view.children.end(); ++child)
        picture = firstPicture(*child);
    return picture;
}

std::string firstText(const View& view) {
    auto text = shownText(view);
    for (auto child = view.children.begin(); text.empty() && child != view.children.end(); ++child)
        text = firstText(*child);
    return text;
}

} // namespace

DragPreview dragPreviewOf(const View& dragged) {
    const auto& label = dragged.accessibilityLabel;
    return {.picture = firstPicture(dragged), .label = label.empty() ? firstText(dragged) : label};
}

} // namespace tavrin
