// The manual page: formats all help texts for the man program.
// Entry points: runManual().
// Owns: the sentences that are in no help text.
// Covered by tests/tools/ttconfig/commandline/manual_test.cpp.

#include "ttconfig/commandline/manual.h"

#include <fmt/format.h>

#include "traderbase/base/config/internal/text/splitting.h"
#include "ttconfig/commandline/subcommand.h"
#include "ttconfig/findings/rules.h"
#include "ttconfig/invocation/exitcodes.h"

namespace ttconfig {

namespace {

constexpr std::string_view kNotes = R"(.SH ENVIRONMENT
.TP
.B NO_COLOR
Set and not empty: no colour, unless \fB\-\-color\fR asks for it.
.TP
.B TERM
.B dumb
or nothing: no colour and no progress on the terminal.
.SH FILES
.TP
.I ../luaScripts/MarketTime.lua
The market-time script, seen from the current folder. \fB\-C\fR changes to another one first.
.SH NOTES
What is asked for is written to standard output, messages and the library's own lines to standard error. Work that takes
long shows how far it is, on a terminal only. No file that is read is ever written to.
.SH SEE ALSO
.BR ttconfig " " keys ,
the reference of the settings file;
.BR ttconfig " " switches ,
the platform switches.
)";

// A line of roff text: nothing in it is read as a request or an escape, and a "-" can be copied.
std::string roff(std::string_view text) {
    std::string line;
    for (const char c : text) {
        if (c == '\\') {
            line += "\\e";
        } else if (c == '-') {
            line += "\\-";
        } else if (c == '\'') {
            line += "\\(aq";
        } else {
            line += c;
        }
    }
    return line.rfind('.', 0) == 0 ? "\\&" + line : line;
}

// A help text: indented lines keep their layout, other lines flow.
std::string roffText(const std::string& help) {
    std::string page;
    bool asItIs = false;
    ttservice::internal::splitKeepEmpty(help, '\n', [&](std::string_view line) {
        const bool indented = line.rfind("  ", 0) == 0;
        if (indented && !asItIs) page += ".PP\n.RS 4\n.nf\n";
        if (!indented && asItIs) page += ".fi\n.RE\n";
        asItIs = indented;
        page += line.empty() ? std::string(".PP") : roff(indented ? line.substr(2) : line);
        page += '\n';
    });
    return asItIs ? page + ".fi\n.RE\n" : page;
}

// "\fB-o\fR, \fB--output\fR \fIFILE\fR".
std::string optionHead(const CLI::Option& option) {
    std::string head;
    const auto add = [&head](const std::string& name) {
        head += (head.empty() ? "" : ", ") + std::string("\\fB") + roff(name) + "\\fR";
    };
    for (const std::string& name : option.get_snames())
        add('-' + name);
    for (const std::string& name : option.get_lnames())
        add("--" + name);
    if (option.get_items_expected_max() > 0) head += " \\fI" + roff(option.get_type_name()) + "\\fR";
    return head;
}

std::string optionEntry(const CLI::Option& option, const std::string& head) {
    std::string text = option.get_description();
    if (option.get_required()) text += "; must be given";
    if (!option.get_default_str().empty()) text += "; without it: " + option.get_default_str();
    return ".TP\n" + head + '\n' + roff(text) + ".\n";
}

std::string optionEntries(const CLI::App& app) {
    std::string page;
    for (const CLI::Option* option : app.get_options()) {
        if (option->get_positional()) page += optionEntry(*option, "\\fI" + roff(option->get_single_name()) + "\\fR");
    }
    for (const CLI::Option* option : app.get_options()) {
        if (!option->get_positional()) page += optionEntry(*option, optionHead(*option));
    }
    return page;
}

// "ttconfig ask [OPTIONS] CALL [ARG...]".
std::string synopsis(const CLI::App& app, const std::string& path) {
    std::string words;
    for (const CLI::Option* option : app.get_options()) {
        if (!option->get_positional()) continue;
        const std::string name = option->get_single_name() + (option->get_expected_max() > 1 ? "..." : "");
        words += option->get_required() ? ' ' + name : " [" + name + ']';
    }
    return fmt::format("\\fBttconfig {}\\fR [\\fIOPTIONS\\fR]\\fI{}\\fR\n", roff(path), roff(words));
}

// Calls visit with each runnable subcommand and its full name, which includes its topic.
template <typename Visit>
void visitSubcommands(const CLI::App& app, const std::string& front, const Visit& visit) {
    for (const CLI::App* below : app.get_subcommands([](const CLI::App*) { return true; })) {
        if (below->get_group().empty()) continue;
        const std::string path = front + below->get_name();
        if (below->get_subcommands([](const CLI::App*) { return true; }).empty()) {
            visit(*below, path);
        } else {
            visitSubcommands(*below, path + ' ', visit);
        }
    }
}

std::string subcommandPart(const CLI::App& app, const std::string& path) {
    return fmt::format(".SS {}\n{}.PP\n{}.\n.PP\n{}{}", roff(path), synopsis(app, path), roff(app.get_description()),
                       roffText(app.get_footer()), optionEntries(app));
}

std::string exitCodePart() {
    std::string page = ".SH EXIT STATUS\n";
    for (const auto& [code, meaning] : kExitCodes)
        page += fmt::format(".TP\n.B {}\n{}.\n", static_cast<int>(code), roff(meaning));
    return page;
}

std::string rulesPart() {
    std::string page = ".SH RULES OF CHECK\n\\fBttconfig check \\-\\-explain\\fR \\fIRULE\\fR tells more about each.\n";
    for (const Rule& rule : kRules)
        page += fmt::format(".TP\n.B {}\n{}.\n", roff(rule.name), roff(rule.title));
    return page;
}

}  // namespace

int runManual(const CommandLine& /*commandLine*/, Output& output) {
    CommandLine scratch;
    Registration registration(scratch);
    const CLI::App& root = registration.app();
    std::string page = fmt::format(".TH TTCONFIG 1 \"\" \"ttconfig {}\" \"User Commands\"\n", TTCONFIG_VERSION);
    page += ".SH NAME\nttconfig \\- ask the trading client\\(aqs configuration\n.SH SYNOPSIS\n";
    visitSubcommands(root, "",
                     [&page](const CLI::App& app, const std::string& path) { page += synopsis(app, path) + ".br\n"; });
    page += ".SH DESCRIPTION\n" + roff(root.get_description()) + "\n.SH OPTIONS\n" + optionEntries(root);
    page += ".SH SUBCOMMANDS\n";
    visitSubcommands(root, "",
                     [&page](const CLI::App& app, const std::string& path) { page += subcommandPart(app, path); });
    output.write(page + exitCodePart() + rulesPart() + std::string(kNotes));
    return kExitDone;
}

}  // namespace ttconfig
