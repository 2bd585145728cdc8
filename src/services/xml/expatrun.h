#pragma once
#include <exception>
#include <expat.h>
#include <string>
#include <string_view>

#include "services/xml/xmlencoding.h"

/// Where parsers that are made from now on take their memory, for tests; null, as at first, for the
/// system's heap. It must outlive them.
void SetExpatMemory(const XML_Memory_Handling_Suite* memory);

/// One parse of a document by Expat. Handlers are set on GetParser(); their user data is the run's
/// `userData`. The end handler of an empty element may be called once more after Refuse().
class TExpatRun {
public:
    TExpatRun(const TXMLEncoding& encoding, void* userData);
    ~TExpatRun();
    TExpatRun(const TExpatRun&) = delete;
    TExpatRun& operator=(const TExpatRun&) = delete;

    XML_Parser GetParser() { return Parser; }

    /// Parses the next part of the document. False when the document is malformed or was refused.
    bool Feed(std::string_view part, bool isLast);
    /// The same in two steps. The copy is where the part is parsed; it lives until the next part is
    /// copied. Empty when the part is too long to be parsed at a time: Feed() does it.
    std::string_view Copy(std::string_view part);
    bool ParseCopy(std::string_view copy, bool isLast);

    /// Called by a handler: the document fails at the present token, for `reason`.
    void Refuse(std::string reason);
    /// Called by a handler: nothing more is to be read.
    void Stop();

    /// What a handler does goes through here: nothing may be thrown through Expat. What is thrown
    /// ends the parse, which throws it then; what comes behind it is not done.
    template <class THandle>
    void Guard(THandle handle) noexcept {
        if (Thrown) return;
        try {
            handle();
        } catch (...) {
            Thrown = std::current_exception();
            Stop();
        }
    }

    /// The present token's first byte in the document, and its length in bytes.
    std::size_t GetTokenBegin() const;
    std::size_t GetTokenLength() const;

    /// Expat's error, XML_ERROR_ABORTED after a refusal or stop.
    XML_Error GetError() const { return XML_GetErrorCode(Parser); }
    /// Why and where the document failed; "" when it did not.
    const std::string& GetReason() const { return Reason; }
    std::size_t GetFailurePlace() const { return FailurePlace; }

private:
    bool Fail();

    XML_Parser Parser;
    std::size_t PartSize = 4096;  // of the next part, unless it is the last
    std::size_t Fed = 0;
    std::string Reason;
    std::size_t FailurePlace = 0;
    bool Stopped = false;
    std::exception_ptr Thrown;
};

/// Whether Expat takes a whole document.
bool IsWellFormed(std::string_view document);
