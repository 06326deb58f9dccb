#include "pins/pins_for_tests.h"
#include "pins/store/pinned_action_document.h"

#include <gtest/gtest.h>
#include <span>
#include <string>
#include <utility>

namespace tavrin {

namespace {

std::optional<std::vector<PinnedAction>> decode(std::string_view json) {
    return PinnedActionDocument::decode(std::as_bytes(std::span(json)));
}

std::string encode(const std::vector<PinnedAction>& pins) {
    const auto bytes = PinnedActionDocument::encode(pins);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

PinnedAction fullPin() {
    auto pin = pinCalled("Save / \"as\" \\ \n\x01 … 💾", 9);
    pin.id = *Uuid::from("e621e1f8-c36c-495a-93fc-0c247a3e6e5f");
    pin.statusItem = {"item", "La bel", -3};
    pin.path = {{"File", "id"}, {"", {}}};
    pin.hasConfirmedFirstRun = true;
    pin.lastFailure = "It didn’t.";
    pin.iconPng = {std::byte{0xFF}, std::byte{0xFF}, std::byte{0xFF}, std::byte{0x00}};
    pin.hotKey = HotKeyShortcut(4, controlKeyFlag | optionKeyFlag);
    pin.menuOrigin = PinnedMenuOrigin::AppMenuBar;
    return pin;
}

constexpr const char* fullDocument =
    R"({"version":1,"pins":[{"id":"E621E1F8-C36C-495A-93FC-0C247A3E6E5F",)"
    R"("name":"Save \/ \"as\" \\ \n\u0001 … 💾","bundleIdentifier":"org.example.app",)"
    R"("applicationName":"Example","statusItem":{"identifier":"item","label":"La bel","index":-3},)"
    R"("path":[{"title":"File","identifier":"id"},{"title":""}],"hasConfirmedFirstRun":true,)"
    R"("lastFailure":"It didn’t.","iconPNG":"\/\/\/\/AA==","hotKey":{"keyCode":4,"modifiers":786432},)"
    R"("menuOrigin":"appMenuBar"}]})";

constexpr const char* barePin =
    R"({"id":"00000000-0000-0000-0000-000000000001","name":"Quit","bundleIdentifier":"org.example.app",)"
    R"("applicationName":"Example","statusItem":{"index":0},"path":[{"title":"Quit"}],)"
    R"("hasConfirmedFirstRun":false})";

std::string documentOf(std::string_view pins) {
    return R"({"version":1,"pins":[)" + std::string(pins) + "]}";
}

/// The bare pin with a part of its text replaced.
std::string documentWith(std::string_view part, std::string_view replacement) {
    std::string pin = barePin;
    const auto place = pin.find(part);
    EXPECT_NE(place, std::string::npos) << part;
    return documentOf(pin.replace(place, part.size(), replacement));
}

} // namespace

TEST(PinnedActionDocument, isWrittenAndReadToTheByte) {
    EXPECT_EQ(encode({fullPin()}), fullDocument);
    EXPECT_EQ(decode(fullDocument), std::vector{fullPin()});
    EXPECT_EQ(encode({pinCalled("Quit", 1)}), documentOf(barePin));
    EXPECT_EQ(encode({}), R"({"version":1,"pins":[]})");

    auto damaged = pinCalled("a\xFF\xE2\x82z", 1);
    EXPECT_EQ(decode(encode({damaged}))->front().name, "a\uFFFD\uFFFDz");
}

TEST(PinnedActionDocument, readsWhatOtherWritersMayLeave) {
    const std::vector bare{pinCalled("Quit", 1)};
    for (const auto& document : {
             documentWith(R"("index":0)", R"("index":-0.0e+5,"label":null,"identifier":null)"),
             documentWith(R"("hasC)", R"("later":[{"a":[1e999,-0.5,"\ud83d\udcbe"]}],"hotKey":null,"hasC)"),
             documentWith(R"("name":"Quit")", R"("name":"\u0051uit","name":7)"),
             documentWith("000000000001", "000000000001\",\"menuOrigin\":null,\"x\":\""),
             "\xEF\xBB\xBF \n" + documentOf(barePin) + "\r\n\t ",
             R"({"version":0,"pins":[)" + std::string(barePin) + "]}",
             R"({"version":-7,"pins":[)" + std::string(barePin) + "]}",
         })
        EXPECT_EQ(decode(document), bare) << document;
    EXPECT_EQ(decode(documentWith(R"("index":0)", R"("index":12.50e1)"))->front().statusItem.index, 125);
    EXPECT_EQ(decode(documentOf(std::string(barePin) + "," + barePin))->size(), 2u);
}

TEST(PinnedActionDocument, isUnreadableAsAWhole) {
    const std::string deep(100'000, '[');
    for (const auto& document : {
             std::string(),
             std::string("null"),
             std::string("[]"),
             std::string("{"),
             deep,
             std::string("NaN"),
             documentOf(barePin) + "x",
             documentOf(barePin) + std::string(1, '\0'),
             documentOf(std::string(barePin) + ","),
             documentOf(std::string(barePin) + ",7"),
             std::string(R"({"pins":[]})"),
             std::string(R"({"version":1})"),
             std::string(R"({"version":2,"pins":[]})"),
             std::string(R"({"version":"1","pins":[]})"),
             std::string(R"({"version":1,"pins":{}})"),
             std::string(R"({"version":99999999999999999999,"pins":[]})"),
             R"({"x":)" + deep + R"(,"version":1,"pins":[]})",
             documentWith(R"("index":0)", R"("x":0)"),
             documentWith(R"("index":0)", R"("index":0.5)"),
             documentWith(R"("index":0)", R"("index":9223372036854775808)"),
             documentWith(R"("index":0)", R"("index":1e400)"),
             documentWith(R"("index":0)", R"("index":NaN)"),
             documentWith(R"("index":0)", R"("index":01)"),
             documentWith(R"("index":0)", R"("index":+1)"),
             documentWith(R"("index":0)", R"("index":true)"),
             documentWith(R"("index":0)", R"("index":0,"label":1)"),
             documentWith(R"({"title":"Quit"})", R"({"identifier":"a"})"),
             documentWith(R"({"title":"Quit"})", R"({"title":null})"),
             documentWith(R"([{"title":"Quit"}])", R"({"title":"Quit"})"),
             documentWith("false", "0"),
             documentWith("false", R"("false")"),
             documentWith("false", "False"),
             documentWith("false", R"(false,"menuOrigin":"dock")"),
             documentWith("false", R"(false,"lastFailure":{})"),
             documentWith("false", R"(false,"iconPNG":"AAA")"),
             documentWith("false", R"(false,"iconPNG":"AA A")"),
             documentWith("false", R"(false,"iconPNG":"A=AA")"),
             documentWith("false", R"(false,"iconPNG":"A===")"),
             documentWith("false", R"(false,"iconPNG":"====")"),
             documentWith("false", R"(false,"iconPNG":[])"),
             documentWith("false", R"(false,"hotKey":{"keyCode":4})"),
             documentWith("false", R"(false,"hotKey":{"keyCode":-1,"modifiers":262144})"),
             documentWith("false", R"(false,"hotKey":{"keyCode":4294967296,"modifiers":262144})"),
             documentWith("false", R"(false,"hotKey":{"keyCode":4,"modifiers":-1})"),
             documentWith("00000000-", "0000000-"),
             documentWith("00000000-", "G0000000-"),
             documentWith("00000000-", "+0000000-"),
             documentWith("0000-", "-0000"),
             documentWith("000001\"", "0001\""),
             documentWith("Quit", "Quit\xC0\x80"),
             documentWith("Quit", "\xED\xA0\x80"),
             documentWith("Quit", "\xF4\x90\x80\x80"),
             documentWith("Quit", "\xE2\x82"),
             documentWith("Quit", "\n"),
             documentWith("Quit", R"(\ud800)"),
             documentWith("Quit", R"(\udc00\ud800)"),
             documentWith("Quit", R"(\u12)"),
             documentWith("Quit", R"(\x)"),
             documentWith("Quit", R"(\u-123)"),
         })
        EXPECT_FALSE(decode(document).has_value()) << document.substr(0, 300);
}

TEST(PinnedActionDocument, isUnreadableWhereverItIsCutOff) {
    const std::string whole = fullDocument;
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(decode(whole.substr(0, length)).has_value()) << length;
}

} // namespace tavrin
