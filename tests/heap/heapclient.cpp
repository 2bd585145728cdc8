#include "tests/heap/heapclient.h"
#include "tests/heap/passages.h"

std::vector<std::string> FailedPassagesOfClient() {
    return FailedPassages();
}
std::string MakeClientText() {
    return kLongText;
}
THdlProjectFile* MakeClientFile() {
    return new THdlProjectFile(ISFileName::NewISFileName("/a/client.txt"), nullptr, false);
}
bool IsHeapOfClient(const void* memory) {
    return IsSharedHeap(memory);
}
void DeleteInClient(THdlProjectFile* file) {
    delete file;
}
