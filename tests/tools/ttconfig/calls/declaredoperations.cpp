#include "tests/tools/ttconfig/calls/declaredoperations.h"

#include <cctype>
#include <vector>

namespace tests {

namespace {

// The text without comments and preprocessor lines.
std::string plainText(const std::string& header) {
    std::string text;
    bool lineStart = true;
    for (std::size_t i = 0; i < header.size(); ++i) {
        const auto skipTo = [&](const char* end, std::size_t length) {
            const std::size_t found = header.find(end, i);
            i = found == std::string::npos ? header.size() : found + length - 1;
        };
        if (header.compare(i, 2, "//") == 0) {
            skipTo("\n", 1);
            text += '\n';
            lineStart = true;
        } else if (header.compare(i, 2, "/*") == 0) {
            skipTo("*/", 2);
        } else if (lineStart && header[i] == '#') {
            do
                skipTo("\n", 1);
            while (i > 1 && i < header.size() && header[i - 1] == '\\' && ++i);
        } else {
            text += header[i];
            if (std::isspace(static_cast<unsigned char>(header[i])) == 0) lineStart = false;
            if (header[i] == '\n') lineStart = true;
        }
    }
    return text;
}

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t\n");
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\n") + 1 - first);
}

bool isNamePart(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

// The statements of a block, split at ";" and at bodies; "public:" and the like are statements of their own.
std::vector<std::string> statements(const std::string& block) {
    std::vector<std::string> found;
    std::string current;
    int depth = 0;
    for (std::size_t i = 0; i < block.size(); ++i) {
        const char c = block[i];
        if (c == '{') ++depth;
        if (depth == 0) current += c;
        const bool isLabel =
            depth == 0 && c == ':' && block.compare(i, 2, "::") != 0 && (i == 0 || block[i - 1] != ':');
        const bool ends = (depth == 0 && c == ';') || (c == '}' && --depth == 0) || isLabel;
        if (!ends) continue;
        found.push_back(trimmed(current));
        current.clear();
    }
    return found;
}

// The block between the next pair of matching braces after this position.
std::string blockBehind(const std::string& text, std::size_t at) {
    const std::size_t open = text.find('{', at);
    int depth = 0;
    for (std::size_t i = open; i < text.size(); ++i) {
        if (text[i] == '{') ++depth;
        if (text[i] == '}' && --depth == 0) return text.substr(open + 1, i - open - 1);
    }
    return {};
}

// The name before the first parenthesis; empty for a statement that declares no callable operation.
std::string operationName(const std::string& statement) {
    const std::size_t parenthesis = statement.find('(');
    if (parenthesis == std::string::npos) return {};
    for (const char* word : {"friend ", "using ", "typedef ", "operator", "= delete"}) {
        if (statement.find(word) != std::string::npos) return {};
    }
    std::size_t start = parenthesis;
    while (start > 0 && isNamePart(statement[start - 1]))
        --start;
    if (start > 0 && statement[start - 1] == '~') return {};
    return statement.substr(start, parenthesis - start);
}

}  // namespace

std::map<std::string, int> publicOperations(const std::string& header, const std::string& className) {
    const std::string text = plainText(header);
    std::size_t at = std::string::npos;
    for (std::size_t i = text.find("class "); i != std::string::npos; i = text.find("class ", i + 1)) {
        const std::string head = text.substr(i, text.find_first_of(";{", i) - i);
        const std::size_t name = head.find(className);
        const bool isWord = name != std::string::npos && !isNamePart(head[name - 1]) &&
                            (name + className.size() == head.size() || !isNamePart(head[name + className.size()]));
        if (isWord && text[i + head.size()] == '{') at = i;
    }
    std::map<std::string, int> operations;
    if (at == std::string::npos) return operations;
    bool isPublic = false;
    for (const std::string& statement : statements(blockBehind(text, at))) {
        if (statement == "public:" || statement == "private:" || statement == "protected:") {
            isPublic = statement == "public:";
        } else if (const std::string name = operationName(statement); isPublic && !name.empty() && name != className) {
            ++operations[name];
        }
    }
    return operations;
}

std::map<std::string, int> markedFunctions(const std::string& header, const std::string& mark) {
    const std::string text = plainText(header);
    std::map<std::string, int> functions;
    for (std::size_t i = text.find(mark); i != std::string::npos; i = text.find(mark, i + 1)) {
        const std::string statement = text.substr(i, text.find_first_of(";{", i) - i);
        if (const std::string name = operationName(statement); !name.empty()) ++functions[name];
    }
    return functions;
}

}  // namespace tests
