#include "platform/application.h"
#include "platform/defaults.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/waiting.h"
#include "seam_check/words.h"

#include <algorithm>
#include <limits>
#include <string>

namespace tavrin::seam_check {

namespace {

/// A preferences domain that is empty at first and at the end.
class Scratch {
  public:
    explicit Scratch(Defaults& defaults) : defaults_(defaults) { clear(); }

    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    ~Scratch() { clear(); }

    DefaultsDomain shared{scratchDomain, DefaultsDomain::Host::Any};
    DefaultsDomain here{scratchDomain, DefaultsDomain::Host::Current};

  private:
    void clear() {
        for (const auto& domain : {shared, here}) {
            for (const auto& key : defaults_.keys(domain)) defaults_.remove(domain, key);
            defaults_.synchronize(domain);
        }
    }

    Defaults& defaults_;
};

Verdict ownDomainIsNamed(const Platform& platform) {
    const auto domain = platform.defaults.ownDomain();
    Findings findings;
    findings.expect(domain.name == platform.application.bundleIdentifier(),
                    "the domain is called " + quoted(domain.name));
    findings.expect(domain.host == DefaultsDomain::Host::Any, "it holds for this computer alone");
    const auto keys = platform.defaults.keys(domain);
    findings.expect(std::ranges::is_sorted(keys), "its keys are not ascending");
    return findings.verdict("It is " + quoted(domain.name) + ".");
}

Verdict unwrittenDomainsAreEmpty(const Platform& platform) {
    const DefaultsDomain nobodys{"org.tavrin.seam-check.never-written"};
    Findings findings;
    findings.expect(platform.defaults.keys(nobodys).empty(), "it has keys");
    findings.expect(!platform.defaults.value(nobodys, "key"), "it has a value");
    findings.expect(!platform.defaults.value(nobodys, ""), "it has a value without a key");
    return findings.verdict("It has neither keys nor values.");
}

DefaultsData someData() { return {std::byte{0}, std::byte{0xFF}, std::byte{0}, std::byte{'a'}}; }

/// Values that a careless conversion would take for each other.
std::vector<DefaultsValue> manyValues() {
    constexpr auto largest = std::numeric_limits<std::int64_t>::max();
    constexpr auto smallest = std::numeric_limits<std::int64_t>::min();
    const DefaultsArray mixed{{std::int64_t{1}}, {1.0}, {true}, {std::string("1")}, {someData()}};
    return {
        {true},
        {false},
        {std::int64_t{0}},
        {std::int64_t{1}},
        {largest},
        {smallest},
        {0.0},
        {1.0},
        {161.5},
        {std::string()},
        {std::string("1")},
        {std::string("true")},
        {std::string("’é日\n")},
        {DefaultsData{}},
        {someData()},
        {DefaultsArray{}},
        {mixed},
        {DefaultsDictionary{}},
        {DefaultsDictionary{{"real", {2.0}}, {"", {false}}, {"array", {mixed}}}},
    };
}

std::string_view kindOf(const std::optional<DefaultsValue>& stored) {
    static constexpr std::string_view names[] = {"a boolean", "an integer", "a real",      "a text",
                                                 "data",      "an array",   "a dictionary"};
    return stored ? names[stored->value.index()] : "nothing";
}

void compare(Findings& findings, const Defaults& defaults, const DefaultsDomain& domain) {
    const auto values = manyValues();
    for (std::size_t n = 0; n < values.size(); ++n) {
        const auto stored = defaults.value(domain, "key " + std::to_string(n));
        findings.expect(stored == values[n], "value " + std::to_string(n) + ", " +
                                                 std::string(kindOf(values[n])) + ", came back as " +
                                                 std::string(kindOf(stored)) + " that differs");
    }
}

Task<Verdict> valuesKeepTheirKinds(Platform platform) {
    auto& defaults = platform.defaults;
    const Scratch scratch(defaults);
    const auto values = manyValues();
    Findings findings;
    for (std::size_t n = 0; n < values.size(); ++n)
        defaults.set(scratch.shared, "key " + std::to_string(n), values[n]);
    compare(findings, defaults, scratch.shared);
    if (!findings.areNone()) co_return findings.verdict("");
    defaults.synchronize(scratch.shared);
    compare(findings, defaults, scratch.shared);
    co_return findings.verdict(counted(values.size(), "value") + " of seven kinds came back as they were.");
}

Task<Verdict> hostsAreApart(Platform platform) {
    auto& defaults = platform.defaults;
    const Scratch scratch(defaults);
    const DefaultsValue forAll{std::string("for all")};
    const DefaultsValue forThis{std::string("for this one")};
    Findings findings;
    defaults.set(scratch.shared, "both", forAll);
    findings.expect(!defaults.value(scratch.here, "both"), "a value for any host is told as this computer's");
    defaults.set(scratch.here, "both", forThis);
    defaults.set(scratch.here, "here", forThis);
    findings.expect(defaults.value(scratch.shared, "both") == forAll, "this computer's value took its place");
    findings.expect(defaults.value(scratch.here, "both") == forThis, "this computer's value is lost");
    findings.expect(!defaults.value(scratch.shared, "here"), "this computer's value is told for any host");
    findings.expect(defaults.keys(scratch.shared) == std::vector<std::string>{"both"},
                    "the keys for any host are mixed up with this computer's");
    defaults.remove(scratch.here, "both");
    findings.expect(defaults.value(scratch.shared, "both") == forAll, "removing one removed the other");
    co_return findings.verdict("One key had a value for each.");
}

Task<Verdict> keysAscend(Platform platform) {
    auto& defaults = platform.defaults;
    const Scratch scratch(defaults);
    const std::vector<std::string> ascending{"1", "10", "2", "A key.with (signs)", "B", "a", "b", "c"};
    for (const auto* key : {"b", "10", "a", "B", "2", "c", "1", "A key.with (signs)"})
        defaults.set(scratch.shared, key, {true});
    const auto keys = defaults.keys(scratch.shared);
    Findings findings;
    findings.expect(keys.size() == ascending.size(), "eight keys are " + std::to_string(keys.size()));
    findings.expect(std::ranges::is_sorted(keys), "they are not ascending");
    findings.expect(std::ranges::is_permutation(keys, ascending), "they are not those that were stored");
    co_return findings.verdict("Eight keys came in order.");
}

Task<Verdict> removedIsGone(Platform platform) {
    auto& defaults = platform.defaults;
    const Scratch scratch(defaults);
    defaults.set(scratch.shared, "stays", {std::int64_t{1}});
    defaults.set(scratch.shared, "goes", {std::int64_t{1}});
    defaults.synchronize(scratch.shared);
    defaults.remove(scratch.shared, "goes");
    defaults.remove(scratch.shared, "was never there");
    Findings findings;
    const auto look = [&] {
        findings.expect(!defaults.value(scratch.shared, "goes"), "it has a value");
        findings.expect(defaults.keys(scratch.shared) == std::vector<std::string>{"stays"}, "it has a key");
    };
    look();
    defaults.synchronize(scratch.shared);
    look();
    co_return findings.verdict("The other key stayed.");
}

Task<Verdict> laterValuesReplaceEarlier(Platform platform) {
    auto& defaults = platform.defaults;
    const Scratch scratch(defaults);
    Findings findings;
    for (const auto& value : manyValues()) {
        defaults.set(scratch.shared, "key", value);
        const auto stored = defaults.value(scratch.shared, "key");
        findings.expect(stored == value, std::string(kindOf(value)) + " was read as " +
                                             std::string(kindOf(stored)) + " that differs");
    }
    findings.expect(defaults.keys(scratch.shared).size() == 1, "one key is listed more than once");
    co_return findings.verdict("Each was seen at once.");
}

Task<Verdict> valuesAreReadAnywhere(Platform platform) {
    auto& defaults = platform.defaults;
    const Scratch scratch(defaults);
    defaults.set(scratch.shared, "key", {161.5});
    const auto stored = co_await offTheMainThread(
        platform, [&defaults, domain = scratch.shared] { return defaults.value(domain, "key"); });
    if (!stored || *stored != DefaultsValue{161.5}) co_return failed("A queue read something else.");
    co_return passed("A queue read what the main thread had set.");
}

Task<Verdict> valuesLeaveTheProcess(Platform platform, Surroundings surroundings) {
    if (!surroundings.isFoundElsewhere) co_return skipped("No second process can be started here.");
    auto& defaults = platform.defaults;
    const Scratch scratch(defaults);
    const std::string text = "kept by " + std::to_string(platform.application.processIdentifier());
    const auto isFound = [&surroundings, text] { return surroundings.isFoundElsewhere(text); };
    const auto before = co_await offTheMainThread(platform, isFound);
    defaults.set(scratch.shared, keptKey, {text});
    defaults.synchronize(scratch.shared);
    const auto after = co_await offTheMainThread(platform, isFound);
    Findings findings;
    findings.expect(before == false, "another process found it before it was set");
    findings.expect(after == true, "another process doesn't find it");
    co_return findings.verdict("Another process found it.");
}

} // namespace

std::vector<Check> defaultsChecks(const Surroundings& surroundings) {
    constexpr auto family = "defaults";
    return {
        reads(family, "The program's domain bears its bundle identifier and holds for any host.",
              ownDomainIsNamed),
        reads(family, "A domain that nobody wrote has no keys and no values.", unwrittenDomainsAreEmpty),
        changes(
            family,
            "Booleans, integers, reals, texts, data, arrays and dictionaries come back as they were stored.",
            valuesKeepTheirKinds),
        changes(family, "Values for this computer alone are apart from those for any host.", hostsAreApart),
        changes(family, "Keys come in ascending order.", keysAscend),
        changes(family, "What was removed is gone.", removedIsGone),
        changes(family, "A later value replaces an earlier one of any kind.", laterValuesReplaceEarlier),
        changes(family, "A value is read alike on any thread.", valuesAreReadAnywhere),
        changes(family, "A value that was handed over outlasts the process.",
                [surroundings](Platform platform) { return valuesLeaveTheProcess(platform, surroundings); }),
    };
}

} // namespace tavrin::seam_check
