#include "flows/process/childprocess.h"
#include "flows/process/nativetexts_windows.h"
#include "flows/process/programs.h"
#include <cstdint>
#include <system_error>

namespace {

HANDLE gInterrupted = nullptr;

BOOL WINAPI HandleControl(DWORD) {
    SetEvent(gInterrupted);
    return TRUE;
}

/// Notes requests to end this process, for its lifetime.
class TControlEvent {
public:
    TControlEvent() : Event(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
        gInterrupted = Event.Get();
        SetConsoleCtrlHandler(HandleControl, TRUE);
    }
    ~TControlEvent() { SetConsoleCtrlHandler(HandleControl, FALSE); }
    HANDLE Get() const { return Event.Get(); }

private:
    TNativeHandle Event;
};

/// The group of a process and all that it starts, which ends with this object.
HANDLE MakeJob() {
    const HANDLE job = CreateJobObjectW(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

HANDLE OpenToAppend(const std::string& file) {
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    return CreateFileW(WideText(file).c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                       &inherited, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
}

/// The environment of this process with more variables, as CreateProcess takes it.
std::wstring EnvironmentWith(const std::vector<std::string>& variables) {
    std::wstring block;
    for (const std::string& variable : variables) block += WideText(variable) + L'\0';
    wchar_t* const own = GetEnvironmentStringsW();
    for (const wchar_t* at = own; at && *at; at += std::wstring_view(at).size() + 1)
        block += std::wstring(at) + L'\0';
    FreeEnvironmentStringsW(own);
    return block + L'\0';
}

std::string LastReason() {
    return std::system_category().message(static_cast<int>(GetLastError()));
}

PROCESS_INFORMATION Start(const TChildRequest& request, HANDLE output) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output;
    startup.hStdError = output;
    PROCESS_INFORMATION process{};
    std::wstring line = WideText(CommandLineOf(request.Words));
    std::wstring environment = EnvironmentWith(request.Environment);
    const std::wstring folder = WideText(request.Folder);
    const std::wstring program = WideText(FindProgram(request.Words[0], {}));
    CreateProcessW(program.empty() ? nullptr : program.c_str(), line.data(), nullptr, nullptr, TRUE,
                   CREATE_NEW_PROCESS_GROUP | CREATE_UNICODE_ENVIRONMENT | CREATE_SUSPENDED,
                   environment.data(), folder.empty() ? nullptr : folder.c_str(), &startup,
                   &process);
    return process;
}

/// Tells the lines of a pipe until nobody writes to it.
void ReadLines(HANDLE pipe, const std::function<void(std::string_view)>& takeLine) {
    std::string text;
    char block[65536];
    for (DWORD size = 0; ReadFile(pipe, block, sizeof block, &size, nullptr) && size > 0;) {
        text.append(block, size);
        for (std::size_t end; (end = text.find('\n')) != std::string::npos; text.erase(0, end + 1))
            takeLine(
                std::string_view(text).substr(0, end > 0 && text[end - 1] == '\r' ? end - 1 : end));
    }
    if (!text.empty()) takeLine(text);
}

TChildResult WaitFor(const TChildRequest& request, HANDLE process, HANDLE job, HANDLE interrupted) {
    const auto milliseconds = request.Timeout.count();
    const DWORD timeout = milliseconds > 0 && milliseconds < std::int64_t{INFINITE}
                              ? static_cast<DWORD>(milliseconds)
                              : INFINITE;
    const HANDLE handles[] = {process, interrupted};
    TChildEnd end = CHILD_EXITED;
    switch (WaitForMultipleObjects(2, handles, FALSE, timeout)) {
        case WAIT_OBJECT_0:
            break;
        case WAIT_TIMEOUT:
            end = CHILD_TIMED_OUT;
            break;
        default:
            end = CHILD_INTERRUPTED;
    }
    TerminateJobObject(job, 1);
    WaitForSingleObject(process, INFINITE);
    DWORD status = 1;
    GetExitCodeProcess(process, &status);
    return {end, static_cast<int>(status), {}};
}

}  // namespace

TChildResult RunChild(const TChildRequest& request) {
    const TControlEvent interrupted;
    const TNativeHandle job(MakeJob());
    HANDLE reader = nullptr;
    HANDLE writer = nullptr;
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    if (!request.OutputFile.empty())
        writer = OpenToAppend(request.OutputFile);
    else if (CreatePipe(&reader, &writer, &inherited, 0))
        SetHandleInformation(reader, HANDLE_FLAG_INHERIT, 0);
    const TNativeHandle lines(reader);
    TNativeHandle output(writer);
    if (!output.IsOpen() || !job.IsOpen()) return {CHILD_NOT_STARTED, 0, LastReason()};
    const PROCESS_INFORMATION started = Start(request, output.Get());
    if (!started.hProcess) return {CHILD_NOT_STARTED, 0, LastReason()};
    const TNativeHandle process(started.hProcess), thread(started.hThread);
    AssignProcessToJobObject(job.Get(), process.Get());
    ResumeThread(thread.Get());
    output.Close();
    if (lines.IsOpen()) ReadLines(lines.Get(), request.TakeLine);
    return WaitFor(request, process.Get(), job.Get(), interrupted.Get());
}
