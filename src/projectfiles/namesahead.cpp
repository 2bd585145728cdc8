#include "projectfiles/namesahead.h"
#include "services/files/filenameparts.h"
#include "services/files/pathtext.h"

TNamesAhead::TNamesAhead(const ISFileName* file)
    : File(file), Directory(file->GetParts(PART_DIRECTORY)) {}

void TNamesAhead::Announce(std::string_view text) {
    TName& name = At(Count++);
    name.Text = text;
    name.Handle = nullptr;
    name.IsRelative = !text.empty() && IsRelativePath(name.Text.c_str());
    if (name.IsRelative) name.Search.Begin(Directory.Resolve(text));
}

const ISFileName* TNamesAhead::FindNext(std::string_view text, const ISFileName* file) {
    if (!IsNext(text) || file != File || !At(0).IsRelative) return nullptr;
    if (!At(0).Handle) At(0).Handle = At(0).Search.Finish();
    return At(0).Handle;
}

const ISFileName* TNamesAhead::Peek(std::size_t distance) const {
    return distance < Count ? Names[(First + distance) % kSize].Handle : nullptr;
}

void TNamesAhead::DropNext() {
    First = (First + 1) % kSize;
    --Count;
    if (kApproach < Count && At(kApproach).IsRelative) At(kApproach).Search.Approach();
    if (kFinish < Count && At(kFinish).IsRelative) At(kFinish).Handle = At(kFinish).Search.Finish();
}
