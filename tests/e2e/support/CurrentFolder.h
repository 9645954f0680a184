#pragma once

#include <string>

namespace ambrio::e2e {

// A folder that becomes the current one of this process and of the programs that it starts, until
// the end of this object.
class CurrentFolder {
  public:
    // Nothing is made or entered yet.
    explicit CurrentFolder(std::wstring path);
    ~CurrentFolder();
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

    [[nodiscard]] const std::wstring& Path() const { return path_; }
    // Throws std::system_error when there is no such folder.
    void Enter();

  private:
    std::wstring path_;
    std::wstring before_;
};

// The current folder of this process.
[[nodiscard]] std::wstring CurrentFolderPath();

}  // namespace ambrio::e2e
