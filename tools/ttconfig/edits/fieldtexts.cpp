// Field texts: writes a field so that it is read as a wanted value, with few changes to the present text.
// Entry points: says(), writtenLike(), differingBytes(), kindOf().
// Covered by explaining/whynot_test.cpp and explaining/whynotpairs_test.cpp in tests/tools/ttconfig/.

#include "ttconfig/edits/fieldtexts.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "traderbase/base/config/internal/text/digits.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;

// Longer fields are rewritten instead of mended.
constexpr std::size_t kMostMended = 24;
constexpr std::string_view kNumberBytes = "0123456789.-+";

bool isNoNumber(const std::string& wanted) {
    return wanted == "none" || wanted == "null";
}

// Whether the whole text is a number in a plain spelling: it starts and ends with a digit, apart from a sign.
bool isNumber(std::string_view text) {
    const std::string_view digits = text.substr(std::min(text.find_first_not_of("+-"), text.size()));
    return !digits.empty() && internal::isDigit(digits.front()) && internal::isDigit(digits.back()) &&
           internal::strictDouble(text).has_value();
}

// The number as an answer writes it, but without a final ".0", and "nan" for "none" and "null".
std::string plainNumber(const std::string& wanted) {
    if (isNoNumber(wanted)) return "nan";
    const std::size_t size = wanted.size();
    const bool isWhole = size > 2 && wanted.compare(size - 2, 2, ".0") == 0;
    return isWhole ? wanted.substr(0, size - 2) : wanted;
}

// The field with some bytes in its middle changed, or `plain` if that changes no more bytes.
std::string mended(std::string_view field, FieldKind kind, const std::string& wanted, const std::string& plain) {
    std::string best = plain;
    std::size_t fewest = differingBytes(field, plain);
    std::vector<std::string> middles(1);
    for (const char byte : kNumberBytes)
        middles.emplace_back(1, byte);
    for (std::size_t at = 0; at < plain.size(); ++at) {
        for (std::size_t size = 2; at + size <= plain.size(); ++size)
            middles.push_back(plain.substr(at, size));
    }
    for (std::size_t front = 0; front <= field.size(); ++front) {
        for (std::size_t behind = front; behind <= field.size(); ++behind) {
            for (const std::string& middle : middles) {
                const std::size_t changed = behind - front + middle.size();
                if (changed >= fewest) continue;
                const std::string text =
                    std::string(field.substr(0, front)) + middle + std::string(field.substr(behind));
                if (!isNumber(text) || !says(text, kind, wanted)) continue;
                best = text;
                fewest = changed;
            }
        }
    }
    return best;
}

}  // namespace

FieldKind kindOf(internal::LimitField field) {
    switch (field) {
        case internal::LimitField::Integer:
            return FieldKind::Integer;
        case internal::LimitField::Decimal:
            return FieldKind::Decimal;
        case internal::LimitField::Text:
            break;
    }
    return FieldKind::Text;
}

bool says(std::string_view field, FieldKind kind, const std::string& wanted) {
    switch (kind) {
        case FieldKind::Integer:
            return internal::looseInt(field) == internal::looseInt(wanted);
        case FieldKind::LongInteger:
            return internal::looseLong(field) == internal::looseLong(wanted);
        case FieldKind::Decimal: {
            const double number = internal::looseDouble(field);
            return isNoNumber(wanted) ? !std::isfinite(number) : number == internal::looseDouble(wanted);
        }
        case FieldKind::StrictInteger:
            return internal::strictInt(field) && internal::strictInt(field) == internal::strictInt(wanted);
        case FieldKind::StrictDecimal:
            return internal::strictDouble(field) && internal::strictDouble(field) == internal::strictDouble(wanted);
        case FieldKind::Text:
            break;
    }
    return field == wanted;
}

std::string writtenLike(std::string_view field, FieldKind kind, const std::string& wanted) {
    if (kind == FieldKind::Text) return wanted;
    const bool isThere = field.data() != nullptr;
    if (isThere && says(field, kind, wanted)) return std::string(field);
    const std::string plain = plainNumber(wanted);
    return isNumber(field) && isNumber(plain) && field.size() <= kMostMended && plain.size() <= kMostMended
               ? mended(field, kind, wanted, plain)
               : plain;
}

std::size_t differingBytes(std::string_view one, std::string_view other) {
    const auto front = std::mismatch(one.begin(), one.end(), other.begin(), other.end());
    one.remove_prefix(static_cast<std::size_t>(front.first - one.begin()));
    other.remove_prefix(static_cast<std::size_t>(front.second - other.begin()));
    const auto back = std::mismatch(one.rbegin(), one.rend(), other.rbegin(), other.rend());
    return static_cast<std::size_t>((one.rend() - back.first) + (other.rend() - back.second));
}

}  // namespace ttconfig
