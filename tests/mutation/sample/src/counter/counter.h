#pragma once

/// Counts to a limit, and from there to 0.
class TCounter {
public:
    explicit TCounter(int limit) : Limit(limit) {}

    void Step();
    int GetCount() const { return Count; }

private:
    int Limit;
    int Count = 0;
    int Unused = 0;
};

/// How many bits hold `number`.
int BitsOf(int number);
