#include "tests/misuse/calls_posix.h"
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using TValues = std::vector<std::size_t>;

/// The first null that a parameter may be given; its usual value when it takes none.
std::size_t NullOf(const std::vector<TGiven>& values) {
    const auto found = std::find_if(values.begin(), values.end(), [](const TGiven& each) {
        return each.Misuse == TMisuse::NULL_TEXT || each.Misuse == TMisuse::NULL_OBJECT;
    });
    return found == values.end() ? 0 : static_cast<std::size_t>(found - values.begin());
}

std::vector<TValues> WaysToCall(const TMisuseRow& row) {
    const TValues usual(row.Parameters.size(), 0);
    std::vector<TValues> ways = {usual};
    TValues nulls = usual;
    for (std::size_t parameter = 0; parameter < usual.size(); ++parameter) {
        for (std::size_t value = 1; value < row.Parameters[parameter].size(); ++value) {
            if (row.Parameters[parameter][value].Misuse == TMisuse::FORBIDDEN) continue;
            ways.push_back(usual);
            ways.back()[parameter] = value;
        }
        nulls[parameter] = NullOf(row.Parameters[parameter]);
    }
    if (std::find(ways.begin(), ways.end(), nulls) == ways.end()) ways.push_back(nulls);
    return ways;
}

/// The answers that differ: "GetName: "a" -> "b"; ".
std::string ChangesOf(const TState& before, const TState& after) {
    std::string changes;
    for (const auto& [operation, answer] : after)
        if (const std::string& former = before.at(operation); former != answer)
            changes.append(operation)
                .append(": ")
                .append(former)
                .append(" -> ")
                .append(answer)
                .append("; ");
    return changes;
}

void Call(const TMisuseRow& row, TCallOutcome& call) {
    if (!row.Object.Make) {
        call.Result = row.Call(nullptr, call.Values);
        return;
    }
    void* const object = row.Object.Make(call.IsChanged);
    TState before;
    TState after;
    if (object) row.Object.Show(object, &before);
    call.Result = row.Call(object, call.Values);
    if (object) row.Object.Show(object, &after);
    row.Object.Delete(object);
    call.Changes = ChangesOf(before, after);
    for (const auto& [operation, answer] : after)
        call.After.append(operation).append(": ").append(answer).append("; ");
}

void Prepare(const std::string& folder) {
    if (chdir(folder.c_str()) != 0) std::abort();
    const int errors = open("errors", O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(errors, 2);
    dup2(errors, 1);
    SetIniFile("own.ini");
    SetSystemIniFile("system.ini");
    SetOrvaneHomeDirectory(folder.c_str());
    SetTalveraAppDataDirectory(folder.c_str());
    alarm(60);
}

std::string ReadAll(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The texts, each with a zero behind it: what is not whole was not written.
std::vector<std::string> Texts(const std::string& bytes) {
    std::vector<std::string> texts;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t end = bytes.find('\0', at);
        if (end == std::string::npos) break;
        texts.push_back(bytes.substr(at, end - at));
        at = end + 1;
    }
    return texts;
}

[[noreturn]] void CallAll(const TMisuseRow& row, std::vector<TCallOutcome>& calls,
                          const std::string& folder) noexcept {
    Prepare(folder);
    const int results = open("results", O_WRONLY | O_CREAT | O_TRUNC, 0600);
    for (TCallOutcome& call : calls) {
        Call(row, call);
        for (const std::string* text : {&call.Result, &call.Changes, &call.After})
            if (write(results, text->c_str(), text->size() + 1) < 0) std::abort();
    }
    _exit(0);
}

}  // namespace

TRowOutcomes CallInAllWays(const TMisuseRow& row, const std::string& folder) {
    TRowOutcomes outcomes;
    for (const bool isChanged : {false, true})
        for (const TValues& values : WaysToCall(row))
            if (!isChanged || row.Object.Make)
                outcomes.Calls.push_back({isChanged, values, "", "", ""});
    const pid_t child = fork();
    if (child == 0) CallAll(row, outcomes.Calls, folder);
    int status = 0;
    waitpid(child, &status, 0);
    const std::vector<std::string> texts = Texts(ReadAll(folder + "/results"));
    const std::size_t whole = texts.size() / 3;
    for (std::size_t number = 0; number < whole; ++number) {
        outcomes.Calls[number].Result = texts[3 * number];
        outcomes.Calls[number].Changes = texts[3 * number + 1];
        outcomes.Calls[number].After = texts[3 * number + 2];
    }
    if (status != 0 && whole < outcomes.Calls.size())
        outcomes.Crash = TextOf(row, outcomes.Calls[whole]) + ": " +
                         (WIFSIGNALED(status) ? strsignal(WTERMSIG(status)) : "ended") + "\n" +
                         ReadAll(folder + "/errors").substr(0, 3000);
    outcomes.Calls.resize(std::min(whole, outcomes.Calls.size()));
    return outcomes;
}

std::string TextOf(const TMisuseRow& row, const TCallOutcome& call) {
    std::string text = row.Symbol + (call.IsChanged ? " of a changed object" : "") + " with";
    for (std::size_t parameter = 0; parameter < call.Values.size(); ++parameter)
        text.append(" ").append(row.Parameters[parameter][call.Values[parameter]].Label);
    return text;
}
