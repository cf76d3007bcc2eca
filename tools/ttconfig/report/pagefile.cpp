// The page's file: writes it completely or not at all.
// Entry points: PageFile.
// Owns: a draft beside the target file, until the page is finished.
// Covered by tests/tools/ttconfig/report/report_test.cpp.

#include "ttconfig/report/pagefile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "ttconfig/invocation/fault.h"

namespace ttconfig {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void refuse(ExitCode code, const std::string& path, const std::string& trouble) {
    throw Fault(code, "-o " + path + ": " + trouble);
}

// The target of a link, or the path itself.
std::string targetOf(const std::string& path) {
    std::error_code trouble;
    const fs::file_status status = fs::status(path, trouble);
    if (fs::is_directory(status)) refuse(kExitInput, path, "is a directory; name a file in it");
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        refuse(kExitInput, path, "is not a regular file; name another one to write to");
    }
    if (!fs::exists(status)) return path;
    const fs::path target = fs::canonical(path, trouble);
    return trouble ? path : target.string();
}

// The permissions of the file that is replaced, or those that the shell would give a new file.
mode_t modeOf(const std::string& target) {
    struct stat facts {};
    if (stat(target.c_str(), &facts) == 0) return facts.st_mode & 07777U;
    const mode_t mask = umask(0);
    umask(mask);
    return 0666U & ~mask;
}

}  // namespace

PageFile::PageFile(const std::string& path) : shownPath(path) {
    if (path.empty()) refuse(kExitUsage, path, "an empty name; name the file to write");
    target = targetOf(path);
    draft = (fs::path(target).parent_path() / ".ttconfig-XXXXXX").string();
    descriptor = mkstemp(draft.data());
    if (descriptor >= 0) {
        fcntl(descriptor, F_SETFD, FD_CLOEXEC);  // NOLINT(cppcoreguidelines-pro-type-vararg)
        return;
    }
    const int error = errno;
    const std::string trouble = "cannot be written: " + std::generic_category().message(error);
    refuse(error == ENOSPC || error == EDQUOT || error == EIO ? kExitInternal : kExitInput, path,
           trouble + "; name a file in a folder that can be written to");
}

PageFile::~PageFile() {
    if (descriptor >= 0) close(descriptor);
    if (!draft.empty()) unlink(draft.c_str());
}

void PageFile::write(std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            fail(errno);
        }
    }
}

void PageFile::finish() {
    if (fchmod(descriptor, modeOf(target)) != 0) fail(errno);
    const int done = close(descriptor);
    descriptor = -1;
    if (done != 0) fail(errno);
    if (std::rename(draft.c_str(), target.c_str()) != 0) fail(errno);
    draft.clear();
}

void PageFile::fail(int error) {
    refuse(kExitInternal, shownPath, "cannot be written: " + std::generic_category().message(error));
}

}  // namespace ttconfig
