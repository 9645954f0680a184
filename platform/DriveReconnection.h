#pragma once

#include <set>
#include <string>

#include "platform/RememberedDrives.h"

namespace ambrio {

// Connects network drives again that are remembered but not connected, as after a fast start of the
// system or when a computer has just come into its network. Each drive is tried once in the life of
// this object, as a server that is away takes its time to be missed.
class DriveReconnection {
  public:
    // `drives` must live longer.
    explicit DriveReconnection(RememberedDrives& drives) : drives_(drives) {}

    // Tries the drive that the path begins with, if it begins with one. Nothing fails: a drive that
    // stays missing shows when its folders are looked for. For `yield` see RememberedDrives.
    void Reconnect(const std::wstring& path, const Yield& yield);

  private:
    RememberedDrives& drives_;
    std::set<wchar_t> tried_;
};

}  // namespace ambrio
