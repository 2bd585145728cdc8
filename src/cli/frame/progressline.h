#pragma once
#include "services/base/progressobserver.h"
#include <chrono>
#include <functional>
#include <ostream>
#include <string>

/// The terminal that a progress line is drawn on.
struct TProgressScreen {
    using TTime = std::chrono::steady_clock::time_point;

    std::ostream& Stream;
    std::function<std::size_t()> GetWidth;  ///< in columns; 0 when nobody knows
    std::function<TTime()> GetTime = std::chrono::steady_clock::now;
};

/// Shows how far the work of a command has come, in the last line of a terminal, as
/// "reading b.xml: 34 % (12,345 of 36,000 sources)".
///
/// The line appears when the command has lasted a while, is drawn at most ten times a second, and
/// is gone when a work ends: what is printed between works finds an empty line. Nothing may be
/// printed during one.
class TProgressLine : public IProgressObserver {
public:
    /// The command begins, and the line appears after `delay`.
    TProgressLine(TProgressScreen screen, std::chrono::milliseconds delay);
    ~TProgressLine() override { Erase(); }
    TProgressLine(const TProgressLine&) = delete;
    TProgressLine& operator=(const TProgressLine&) = delete;

    /// The file that is worked on from now on, as the user named it; "" for none.
    void SetFile(const std::string& file);

    void WorkProgressed(TProgressWork work, std::size_t done, std::size_t total) override;
    void WorkEnded(TProgressWork) override { Erase(); }

private:
    void Erase();
    void Print(const std::string& text);
    std::string Blanks(std::size_t columns) const;
    std::size_t GetRoom() const;

    TProgressScreen Screen;
    TProgressScreen::TTime NextDrawing;
    std::string File;
    std::size_t Drawn = 0;  // columns
};

/// Observes the work of the thread, for its lifetime; null observes nothing.
class TProgressShown {
public:
    explicit TProgressShown(IProgressObserver* observer) : Former(SetProgressObserver(observer)) {}
    ~TProgressShown() { SetProgressObserver(Former); }
    TProgressShown(const TProgressShown&) = delete;
    TProgressShown& operator=(const TProgressShown&) = delete;

private:
    IProgressObserver* Former;
};
