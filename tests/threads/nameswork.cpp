#include "filenames/hdbsfilename.h"
#include "filenames/hdbsfilenamelist.h"
#include "projectfiles/hdlprojectfile.h"
#include "projectfiles/hdlprojectfilelist.h"
#include "projectfiles/hdlusersourcefilelist.h"
#include "services/names/environment.h"
#include "services/xml/xmllist.h"
#include "simtools/simtoolserverclientcourier.h"
#include "tests/threads/work.h"
#include <array>
#include <atomic>
#include <gtest/gtest.h>

namespace {

/// Is registered at a name that all threads record times of.
class TCountingObserver : public ASFileNameObserver {
public:
    void FileNameChanged(const ISFileName*) override { ++Count; }
    std::atomic<int> Count = 0;
};

/// In UTF-8, one after the other of the 20,000 from U+4E00 on.
std::string NewLetter() {
    static std::atomic<int> last = 0;
    // Relaxed, to put the threads in no order.
    const int code = 0x4E00 + last.fetch_add(1, std::memory_order_relaxed) % 20'000;
    return {static_cast<char>(0xE0 | code >> 12), static_cast<char>(0x80 | (code >> 6 & 0x3F)),
            static_cast<char>(0x80 | (code & 0x3F))};
}

}  // namespace

void AskForNames(const TWorkPlace& place) {
    static std::array<std::atomic<const ISFileName*>, kSharedSources> known;
    for (int i = 0; i < kSharedSources; ++i) {
        const std::string stem = "shared" + std::to_string(i);
        const ISFileName* const handle = place.SharedHandle(SharedSource(i));
        const ISFileName* first = nullptr;
        if (!known[static_cast<std::size_t>(i)].compare_exchange_strong(first, handle)) {
            EXPECT_EQ(handle, first);
        }
        EXPECT_STREQ(handle->GetNameOnly(), stem.c_str());
        EXPECT_STREQ(handle->GetParts(PART_EXTENSION), ".vhd");
        EXPECT_EQ(handle->GetFullFileName(), place.Shared.Path(SharedSource(i)));
        EXPECT_EQ(handle->Exists(), i % 2 == 0);
        EXPECT_TRUE(
            handle->IsEquivalent(*place.SharedHandle("SHARED" + std::to_string(i) + ".VHD")));
        EXPECT_STREQ(place.OwnHandle(place.RoundText() + ".v")->GetNameNoExt(),
                     place.RoundText().c_str());
    }
    for (int i = 0; i < 64; ++i) {
        const std::string letter = NewLetter();
        TXMLList document;
        document.Push(TElement::START, "a" + letter + " " + place.Thread, {});
        document.Push(TElement::END, "a" + letter + " " + place.Thread, {});
        std::string text;
        EXPECT_TRUE(document.WriteToText(&text, nullptr));
        EXPECT_NE(text.find("<a" + letter + "_" + place.Thread + "/>"), std::string::npos) << text;
    }
}

void RecordTimes(const TWorkPlace& place) {
    // Lives as long as the process: another thread may be about to call it.
    static std::array<TCountingObserver, 16> observers;
    TCountingObserver& observer = observers[static_cast<std::size_t>(place.Number)];
    const char* const key = place.Thread.c_str();
    const ISFileName* const common = place.SharedHandle(SharedSource(0));
    for (int i = 0; i < kSharedSources; i += 2) {
        const ISFileName* const handle = place.SharedHandle(SharedSource(i));
        handle->UpdateTimeFileLastLoaded(key);
        EXPECT_FALSE(handle->IsFileModifiedSinceLastLoaded(key, true));
        handle->UpdateTimeFileLastCompiled(key);
        EXPECT_FALSE(handle->IsFileModifiedSinceLastCompiled(key, true));
        EXPECT_EQ(handle->GetLastCompiledTimestamp(nullptr),
                  handle->GetFileModificationTime(nullptr));
        handle->SetDateAndTimeFlag(kDefaultTimeStampKey);
        EXPECT_FALSE(handle->IsFileModifiedSinceLastLoaded(kDefaultTimeStampKey, true));
    }
    TCountingObserver own;
    const ISFileName* const ownHandle = place.OwnHandle("observed.vhd");
    ownHandle->AddObserver(&own);
    ownHandle->UpdateTimeFileLastLoaded(key);
    ownHandle->DeleteObserver(&own);
    EXPECT_EQ(own.Count, 1);
    const int before = observer.Count;
    common->AddObserver(&observer);
    common->UpdateTimeFileLastLoaded(key);
    common->DeleteObserver(&observer);
    EXPECT_GT(observer.Count, before);
}

void RenameListedFiles(const TWorkPlace& place) {
    constexpr auto kInput = THdlProjectFileList::LIST_TYPE_FILE_INPUT;
    THdlProjectFileList list(kInput, nullptr);
    for (int i = 0; i < kSharedSources; ++i)
        EXPECT_TRUE(list.AddAtTailAndSetOwner(place.SharedHandle(SharedSource(i))).second);
    const THdlProjectFileList copy(list);
    for (int i = 0; i < kSharedSources; ++i) {
        const ISFileName* const former = place.SharedHandle(SharedSource(i));
        const ISFileName* const renamed = place.OwnHandle("renamed" + std::to_string(i));
        const auto found = list.FindFromISFileName(former);
        ASSERT_NE(found, list.end());
        **found = THdlProjectFile(renamed, nullptr, false);
        EXPECT_FALSE(list.Contains(former));
        EXPECT_TRUE(list.Contains(renamed));
        EXPECT_TRUE(copy.Contains(renamed));
    }
    THdlUserSourceFileList users(nullptr);
    THdbSFileNameList names;
    for (int i = 0; i < kSharedSources; ++i) {
        const ISFileName* const name = place.SharedHandle(SharedSource(i));
        EXPECT_TRUE(users.AddAtTailAndSetOwner(name).second);
        EXPECT_TRUE(users.SetAssociatedFileScope(name));
        EXPECT_TRUE(users.AddAssociatedFileToScopeFile(name));
        names.AddAtTail(name->Canonical(false));
        const THdbSFileNameList sharing(names);
        EXPECT_FALSE(sharing.IsEmpty());
    }
}

void ExpandVariables(const TWorkPlace& place) {
    TPseudoVariables variables;
    AddPseudoEnvironmentVariablesForFilename(&variables, place.OwnHandle(place.Thread + ".vhd"),
                                             "SOURCE");
    EXPECT_EQ(ResolveOrvaneEnvVariables("${SOURCE_NAME}$(SOURCE_EXT)", &variables),
              place.Thread + ".vhd");
    EXPECT_EQ(ResolveOrvaneEnvVariables("$PATH"), ResolveOrvaneEnvVariables("${PATH}"));
}

void FailACheck(const TWorkPlace& place) {
    TBaseSimToolServerClientCourier courier;
    EXPECT_FALSE(courier.SetCurrentServerName(TRope(place.Thread)));
    THdbSFileName name(place.Thread.c_str());
    name.Pop();
}
