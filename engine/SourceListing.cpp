#include "engine/SourceListing.h"

namespace ambrio {

SourceListing FetchSourceListing(FileSystem& fileSystem, RunHost& host, const RunSignals& signals,
                                 const std::wstring& rsSourceDir, bool withSubFolders) {
    SourceListing listing;
    const std::unique_ptr<FolderReader> reader = fileSystem.GetFolder(rsSourceDir);
    try {
        FileEntry entry;
        for (int count = 1; reader->Next(entry); ++count) {
            if (!entry.IsFolder()) {
                listing.Files.push_back(entry.Name);
            } else if (withSubFolders) {
                listing.SubFolders.push_back(entry);
            }
            if (count % kEntriesBetweenYields == 0) {
                host.DoEvents();
            }
            if (signals.Interrupted && !listing.Files.empty()) {
                break;
            }
        }
    } catch (const RuntimeError& failure) {
        listing.BrokenOff = failure;
    }
    return listing;
}

}  // namespace ambrio
