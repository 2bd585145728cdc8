#pragma once
#include "services/base/api.h"
#include <cstddef>

/// What takes long, and what is counted of it.
enum TProgressWork {
    PROGRESS_READ_DOCUMENT = 0,   ///< an XML document is parsed: its bytes
    PROGRESS_READ_SOURCES = 1,    ///< listed sources are read and looked for on the disk
    PROGRESS_ORDER_SOURCES = 2,   ///< sources are put into compile order
    PROGRESS_WRITE_SOURCES = 3,   ///< a group's sources are written into a document
    PROGRESS_CHECK_SOURCES = 4,   ///< sources are checked; the library itself reports no checks
    PROGRESS_CHECK_NAMES = 5,     ///< names of sources are checked
    PROGRESS_CHECK_ELEMENTS = 6,  ///< elements of a document are checked: its bytes
    PROGRESS_SCAN_SOURCES = 7,    ///< sources are scanned, which the library itself does not do
};

/// Is told how far long work has come.
///
/// Works of a few items are not reported: up to 64 KiB of a document, 16 sources of a read, 1024
/// items of others. Reports follow in steps of that size. A message box or an observer that begins
/// another read has its works reported between those of the first.
///
/// An observer must not throw, and must not change or destroy what is being worked on.
class HDLBUILDFILE_SHARED_TYPE IProgressObserver {
public:
    virtual ~IProgressObserver() = default;

    /// `done` of `total` are done: 0 when a work begins, then more each time. `total` may grow,
    /// when there was more than the work had counted; it is never less than `done`.
    virtual void WorkProgressed(TProgressWork work, std::size_t done, std::size_t total) = 0;

    /// The work reported last is over, whether all of it was done or it was broken off. Each work
    /// that was reported ends.
    virtual void WorkEnded(TProgressWork work) = 0;
};

/// Sets the observer of all work on the calling thread, null for none, and returns the former one.
/// The observer stays the caller's; it must live until another is set and the works that were
/// reported to it have ended.
HDLBUILDFILE_API IProgressObserver* SetProgressObserver(IProgressObserver* observer);

/// The calling thread's observer, null when there is none.
HDLBUILDFILE_API IProgressObserver* GetProgressObserver();
