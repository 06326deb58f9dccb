#include "mac_side/every_view.h"

#include "views/recorder_button.h"

#include <memory>

namespace mac_side {

namespace {

using namespace tavrin;

/// Takes the keyboard when it is clicked, and writes down what it is told.
class LoggingRecorder final : public RecorderButton {
  public:
    LoggingRecorder(RecorderButtonHost& host, EveryViewLog& log) : host_(host), log_(log) {
        host_.show("Record", RecorderLook::Resting);
    }

    ~LoggingRecorder() override { log_.recorder.push_back("gone"); }

    void clicked() override {
        log_.recorder.push_back("clicked");
        host_.makeFirstResponder();
        host_.show("Type…", RecorderLook::Recording);
    }

    void resignedFirstResponder() override {
        log_.recorder.push_back("resigned");
        host_.show("Record", RecorderLook::Resting);
    }

    void movesFromWindow() override { log_.recorder.push_back("moved"); }

  private:
    RecorderButtonHost& host_;
    EveryViewLog& log_;
};

View recorderView(EveryViewLog& log) {
    const auto maker = std::make_shared<RecorderButtonMaker>();
    maker->make = [&log](RecorderButtonHost& host) { return std::make_unique<LoggingRecorder>(host, log); };
    maker->update = [](RecorderButton&) {};
    return shortcutRecorder(maker);
}

View listRow(EveryViewLog& log, int number) {
    const auto name = "Row " + std::to_string(number);
    const auto pressed = [&log](const std::string& what) {
        return [&log, what] { log.pressed.push_back(what); };
    };
    View remove = button("", pressed("remove " + name),
                         {.style = ButtonStyle::Plain, .symbol = "xmark", .help = "Remove"});
    View row = tavrin::row({symbol("star", 12), text(name), spacer(), std::move(remove)});
    row.isFocusable = true;
    row.onPress = pressed(name);
    row.keyActions = {{"delete", pressed("delete " + name)}};
    row.contextMenu = {{"Hide", pressed("hide " + name)}, {"Show", pressed("show " + name)}};
    row.accessibilityLabel = name;
    row.dragValue = name;
    row.onDrop = [&log, name](const std::string& value) { log.dropped.push_back(value + " on " + name); };
    return row;
}

View list(EveryViewLog& log, int rows) {
    std::vector<View> children;
    for (int number = 0; number < rows; ++number) children.push_back(listRow(log, number));
    return scroll(column(std::move(children)), 120);
}

} // namespace

View everyView(EveryViewLog& log, const EveryViewOptions& options) {
    const auto pressed = [&log](const std::string& what) {
        return [&log, what] { log.pressed.push_back(what); };
    };
    View heading = row({icon({"org.example.none"}, 16), text("In a card", {.style = TextStyle::Heading}),
                        spacer(), progress()});
    std::vector<View> all{
        text("Every kind", {.style = TextStyle::Title}),
        text(
            "A longer text that has to wrap, because it says far more than fits into one line of this window.",
            {.tone = Tone::Secondary}),
        card({heading, divider(), checkbox("A choice", options.isChecked, pressed("choice"))},
             {.padding = 10}),
        list(log, options.rows)};
    if (options.hasRecorder) all.push_back(row({text("Shortcut"), spacer(), recorderView(log)}));
    all.push_back(
        row({button("Other", pressed("other")), spacer(),
             button("Fine", pressed("fine"), {.style = ButtonStyle::Prominent, .isDefault = true})}));
    return column(std::move(all), {.spacing = 10, .padding = 16, .width = 360});
}

} // namespace mac_side
