#include "seam/lies_about_stored_things.h"

#include <algorithm>
#include <map>

namespace mac_model {
namespace {

using namespace tavrin;

struct MindsCase : PassedOnText {
    using PassedOnText::PassedOnText;

    std::strong_ordering compareIgnoringCase(std::string_view left, std::string_view right) const override {
        return left <=> right;
    }

    std::string foldingCaseAndDiacritics(std::string_view text) const override { return lowercased(text); }

    std::string foldingCaseDiacriticsAndWidth(std::string_view text) const override {
        return truth.foldingCaseAndDiacritics(text);
    }
};

struct LeavesTexts : PassedOnText {
    using PassedOnText::PassedOnText;

    std::string lowercased(std::string_view text) const override { return std::string(text); }

    std::string capitalized(std::string_view text) const override { return std::string(text); }

    std::string keepingAlphanumerics(std::string_view text) const override { return std::string(text); }

    std::string trimmed(std::string_view text) const override { return std::string(text); }
};

struct StoresCarelessly : PassedOnDefaults {
    using PassedOnDefaults::PassedOnDefaults;

    static DefaultsDomain shared(const DefaultsDomain& domain) { return {domain.name}; }

    std::optional<DefaultsValue> value(const DefaultsDomain& domain, std::string_view key) const override {
        auto stored = truth.value(shared(domain), key);
        if (stored && std::holds_alternative<bool>(stored->value))
            stored->value = std::int64_t{std::get<bool>(stored->value)};
        return stored;
    }

    void set(const DefaultsDomain& domain, std::string_view key, DefaultsValue value) override {
        truth.set(shared(domain), key, std::move(value));
    }

    void remove(const DefaultsDomain&, std::string_view key) override { ++removals[std::string(key)]; }

    std::vector<std::string> keys(const DefaultsDomain& domain) const override {
        auto all = truth.keys(shared(domain));
        std::ranges::reverse(all);
        return all;
    }

    std::map<std::string, int> removals;
};

struct InventsDomains : PassedOnDefaults {
    using PassedOnDefaults::PassedOnDefaults;

    DefaultsDomain ownDomain() const override { return {"Tavrin", DefaultsDomain::Host::Current}; }

    std::vector<std::string> keys(const DefaultsDomain&) const override { return {"key"}; }
};

struct ForgetsOffTheMainThread : PassedOnDefaults {
    explicit ForgetsOffTheMainThread(const Platform& real)
        : PassedOnDefaults(real.defaults)
        , scheduler(real.scheduler) {}

    std::optional<DefaultsValue> value(const DefaultsDomain& domain, std::string_view key) const override {
        return scheduler.isMainThread() ? truth.value(domain, key) : std::nullopt;
    }

    Scheduler& scheduler;
};

struct NeverHandsOver : PassedOnDefaults {
    using PassedOnDefaults::PassedOnDefaults;

    void synchronize(const DefaultsDomain&) override {}
};

} // namespace

std::vector<PlantedLie> liesAboutStoredThings() {
    return {
        lie<MindsCase>(
            "mindsCase", "text",
            {"Folding takes away case and diacritics and reads invalid bytes as U+FFFD.",
             "Folding width, too, is the same in every locale and leaves other scripts their marks.",
             "Comparing takes no account of case, but of accents.", "Text services work on any thread."}),
        lie<LeavesTexts>("leavesTexts", "text",
                         {"Lower case is made of every script.",
                          "Capitalizing raises the first letter of each word and lowers the others.",
                          "Only letters, marks and numbers are kept.",
                          "Trimming takes white space and line breaks off both ends."}),
        lie<StoresCarelessly>(
            "storesCarelessly", "defaults",
            {"Booleans, integers, reals, texts, data, arrays and dictionaries come back as they were stored.",
             "Values for this computer alone are apart from those for any host.",
             "Keys come in ascending order.", "What was removed is gone.",
             "A later value replaces an earlier one of any kind."}),
        lie<InventsDomains>("inventsDomains", "defaults",
                            {"The program's domain bears its bundle identifier and holds for any host.",
                             "A domain that nobody wrote has no keys and no values."}),
        lie<ForgetsOffTheMainThread>("forgetsOffTheMainThread", "defaults",
                                     {"A value is read alike on any thread."}),
        lie<NeverHandsOver>("neverHandsOver", "defaults",
                            {"A value that was handed over outlasts the process."}),
    };
}

} // namespace mac_model
