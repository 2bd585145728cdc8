#include "flows/process/programversion.h"
#include "flows/process/childprocess.h"
#include <algorithm>
#include <charconv>

std::optional<int> AskMajorVersion(const std::string& program, std::string_view name) {
    int version = 0;
    TChildRequest request;
    request.Words = {program, "--version"};
    request.Timeout = std::chrono::seconds(10);
    request.TakeLine = [&version, name](std::string_view line) {
        const std::size_t digit = line.find_first_of("0123456789");
        if (version == 0 && line.starts_with(name) && digit != std::string_view::npos)
            std::from_chars(line.data() + digit, line.data() + line.size(), version);
    };
    if (RunChild(request).End == CHILD_INTERRUPTED) return {};
    return version;
}
