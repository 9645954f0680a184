#pragma once

#include "engine/DestinationListing.h"
#include "platform/FileSystem.h"

namespace ambrio {

// Removes the temporary files that killed copies left in a destination folder. One that does not go
// may belong to a program that is copying now, so it stays without a word; one whose name a source
// file bears, or may bear, is a copy and stays too.
void SweepLeftovers(FileSystem& fileSystem, const DestinationListing& destination);

}  // namespace ambrio
