#pragma once

#include <string>

#include "engine/EngineTexts.h"
#include "platform/FileSystem.h"

namespace ambrio {

// Makes sure that the folder exists, with every missing level above it; true when it had to be
// made. `action` becomes what is being done. Throws RuntimeError when a level cannot
// be made; levels made before stay. Ends for any text.
bool MakeDestinationFolder(FileSystem& fileSystem, const std::wstring& rsDestnDir,
                           FolderAction& action);

}  // namespace ambrio
