#include "cli/frame/progressline.h"
#include "cli/frame/texts.h"
#include <algorithm>
#include <iterator>

namespace {

constexpr auto kBetweenDrawings = std::chrono::milliseconds(100);
constexpr std::size_t kUsualWidth = 80;

struct TWorkText {
    TProgressWork Work;
    const char* Verb;
    const char* Items;
};
constexpr TWorkText kWorkTexts[] = {
    {PROGRESS_READ_DOCUMENT, "reading", "bytes"},    {PROGRESS_READ_SOURCES, "reading", "sources"},
    {PROGRESS_ORDER_SOURCES, "ordering", "sources"}, {PROGRESS_WRITE_SOURCES, "writing", "sources"},
    {PROGRESS_CHECK_SOURCES, "checking", "sources"}, {PROGRESS_CHECK_NAMES, "checking", "names"},
    {PROGRESS_CHECK_ELEMENTS, "checking", "bytes"},  {PROGRESS_SCAN_SOURCES, "scanning", "sources"},
};

const TWorkText& TextsOf(TProgressWork work) {
    const auto* const found =
        std::find_if(std::begin(kWorkTexts), std::end(kWorkTexts),
                     [work](const TWorkText& texts) { return texts.Work == work; });
    return found != std::end(kWorkTexts) ? *found : kWorkTexts[0];
}

/// With a comma between thousands.
std::string Grouped(std::size_t number) {
    std::string text = std::to_string(number);
    for (std::size_t place = text.size(); place > 3;) text.insert(place -= 3, 1, ',');
    return text;
}

std::string Percent(std::size_t done, std::size_t total) {
    const double share = total ? static_cast<double>(done) / static_cast<double>(total) : 1;
    return std::to_string(static_cast<int>(100 * share)) + " %";
}

/// The bytes of the first character of a text in UTF-8; a byte that belongs to none counts as one.
std::size_t FirstCharacter(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t size = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (size > text.size()) return 1;
    const auto isFurther = [](char byte) { return (static_cast<unsigned char>(byte) >> 6) == 2; };
    return std::all_of(text.begin() + 1, text.begin() + static_cast<std::ptrdiff_t>(size),
                       isFurther)
               ? size
               : 1;
}

/// At most so many columns take the characters of that size: those of East Asia take two.
std::size_t ColumnsOf(std::size_t characterSize) {
    return characterSize < 3 ? 1 : 2;
}

std::size_t CountColumns(std::string_view text) {
    std::size_t columns = 0;
    for (std::size_t size = 0; !text.empty(); text.remove_prefix(size)) {
        size = FirstCharacter(text);
        columns += ColumnsOf(size);
    }
    return columns;
}

/// The end of a path that is wider than `room`, behind dots; "" when there is no room for any.
std::string Shortened(std::string_view path, std::size_t room) {
    constexpr std::string_view kDots = "...";
    std::size_t columns = CountColumns(path);
    if (columns <= room) return std::string(path);
    if (room <= kDots.size()) return {};
    while (columns + kDots.size() > room) {
        const std::size_t size = FirstCharacter(path);
        columns -= ColumnsOf(size);
        path.remove_prefix(size);
    }
    return std::string(kDots) + std::string(path);
}

/// The line in at most `room` columns: the numbers count more than the file.
std::string LineOf(TProgressWork work, std::size_t done, std::size_t total, const std::string& file,
                   std::size_t room) {
    const TWorkText& texts = TextsOf(work);
    const std::string verb = texts.Verb;
    const std::string numbers = ": " + Percent(done, total) + " (" + Grouped(done) + " of " +
                                Grouped(total) + " " + texts.Items + ")";
    const std::size_t taken = verb.size() + 1 + numbers.size();
    const std::string name = Shortened(file, room > taken ? room - taken : 0);
    if (name.empty()) return (verb + numbers).substr(0, room);
    return verb + " " + name + numbers;
}

}  // namespace

TProgressLine::TProgressLine(TProgressScreen screen, std::chrono::milliseconds delay)
    : Screen(std::move(screen)), NextDrawing(Screen.GetTime() + delay) {}

void TProgressLine::SetFile(const std::string& file) {
    File = Escaped(file);
}

void TProgressLine::WorkProgressed(TProgressWork work, std::size_t done, std::size_t total) {
    const TProgressScreen::TTime now = Screen.GetTime();
    if (now < NextDrawing) return;
    NextDrawing = now + kBetweenDrawings;
    const std::string line = LineOf(work, done, total, File, GetRoom());
    const std::size_t columns = CountColumns(line);
    Print(line + Blanks(columns));
    Drawn = columns;
}

void TProgressLine::Erase() {
    if (Drawn == 0) return;
    Print(Blanks(0) + "\r");
    Drawn = 0;
}

// In one piece: a stream for errors hands on each text at once.
void TProgressLine::Print(const std::string& text) {
    Screen.Stream << "\r" + text << std::flush;
}

// What erases the former line behind so many columns, on every terminal.
std::string TProgressLine::Blanks(std::size_t columns) const {
    const std::size_t former = std::min(Drawn, GetRoom());
    return std::string(former > columns ? former - columns : 0, ' ');
}

// The last column stays free: some terminals go on to the next line there.
std::size_t TProgressLine::GetRoom() const {
    const std::size_t width = Screen.GetWidth();
    return (width > 0 ? width : kUsualWidth) - 1;
}
