// Feeds the reader of pins anything at all. What it reads must come out of writing and reading again
// unchanged, and its judgement of what is JSON must be that of another reader.

#include "pins/store/pinned_action_document.h"

#include "base/json_value.h"

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <nlohmann/json.hpp>
#include <span>
#include <string_view>

namespace {

using nlohmann::json;
using namespace tavrin;

constexpr int numberTooLarge = 406;

/// Builds nothing and accepts any depth.
class Judge final : public json::json_sax_t {
  public:
    bool saysNumberTooLarge = false;
    std::size_t deepest = 0;

    bool null() override { return true; }

    bool boolean(bool) override { return true; }

    bool number_integer(std::int64_t) override { return true; }

    bool number_unsigned(std::uint64_t) override { return true; }

    bool number_float(double, const std::string&) override { return true; }

    bool string(std::string&) override { return true; }

    bool binary(json::binary_t&) override { return true; }

    bool start_object(std::size_t) override { return enter(); }

    bool key(std::string&) override { return true; }

    bool end_object() override { return leave(); }

    bool start_array(std::size_t) override { return enter(); }

    bool end_array() override { return leave(); }

    bool parse_error(std::size_t, const std::string&, const json::exception& error) override {
        saysNumberTooLarge = error.id == numberTooLarge;
        return false;
    }

  private:
    bool enter() {
        deepest = std::max(deepest, ++depth_);
        return true;
    }

    bool leave() {
        --depth_;
        return true;
    }

    std::size_t depth_ = 0;
};

void require(bool holds, std::string_view what) {
    if (holds) return;
    std::cerr << what << '\n';
    std::abort();
}

void compareWithOtherReader(std::string_view text) {
    if (text.find('\0') != text.npos) return; // ends the text for the other reader
    Judge judge;
    const bool isJson = json::sax_parse(text, &judge);
    if (judge.saysNumberTooLarge) return; // a limit of doubles, not of JSON
    require(parseJson(text).has_value() == (isJson && judge.deepest <= jsonDepthMax),
            isJson ? "JSON was refused" : "what is no JSON was read");
}

void writeAndReadAgain(std::span<const std::byte> bytes) {
    const auto pins = PinnedActionDocument::decode(bytes);
    if (!pins) return;
    require(PinnedActionDocument::decode(PinnedActionDocument::encode(*pins)) == pins,
            "pins changed by being written and read again");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    compareWithOtherReader({reinterpret_cast<const char*>(data), size});
    writeAndReadAgain(std::as_bytes(std::span(data, size)));
    return 0;
}
