#pragma once

#include <string_view>

namespace ttconfig {

// Why an answer is what it is. Each row is one reason: its name, the word that the tool prints, and its meaning.
//
// To add a reason, add a row at the end of its group. The test over generated settings then fails until one of its
// questions has that reason.
#define TT_REASONS(ROW)                                                                                            \
    /* platform switches and other lists: is something listed? */                                                  \
    ROW(Override, "override", "a local override answers, whatever the settings file says")                         \
    ROW(Listed, "listed", "a list of the settings file names it")                                                  \
    ROW(NotListed, "not-listed", "the settings file has the list, and it is not named there")                      \
    ROW(KeyAbsent, "key-absent", "the settings file does not have the key, and nothing stands in for it")          \
    /* values */                                                                                                   \
    ROW(FileValue, "file-value", "the value of a key, as the settings file gives it")                              \
    ROW(PerPlatformValue, "per-platform-value", "an item of the value names the platform")                         \
    ROW(DefaultItem, "default-item", "no item names the platform; an item without a platform says the default")    \
    ROW(BuiltInDefault, "built-in-default", "the settings file does not say; the library's own default holds")     \
    ROW(ConstructedValue, "constructed-value", "no load has set it; it is as the store is born")                   \
    /* rows of data sections */                                                                                    \
    ROW(Row, "row", "a row of the section, or an entry of the list, is about it")                                  \
    ROW(CodeRow, "code-row", "a row names the market and the code")                                                \
    ROW(CategoryRow, "category-row", "no row names the code; one names the market and the code's category")        \
    ROW(InsertedDefault, "inserted-default", "no row fits; the question puts a default under market and category") \
    /* answers that no settings file decides */                                                                    \
    ROW(UnitRule, "unit-rule", "a numbered rule of the trade units")                                               \
    ROW(Script, "script", "the market-time script says so")                                                        \
    ROW(RunTime, "run-time", "only the client sets it; this is its value before the client does")                  \
    ROW(Fixed, "fixed", "the library always answers so")

enum class Reason {
#define TT_REASON_ID(id, word, meaning) id,
    TT_REASONS(TT_REASON_ID)
#undef TT_REASON_ID
};

struct ReasonText {
    Reason reason;
    std::string_view word;
    std::string_view meaning;
};

inline constexpr ReasonText kReasons[] = {
#define TT_REASON_ROW(id, word, meaning) {Reason::id, word, meaning},
    TT_REASONS(TT_REASON_ROW)
#undef TT_REASON_ROW
};

constexpr std::string_view wordOf(Reason reason) {
    return kReasons[static_cast<int>(reason)].word;
}
constexpr std::string_view meaningOf(Reason reason) {
    return kReasons[static_cast<int>(reason)].meaning;
}

}  // namespace ttconfig
