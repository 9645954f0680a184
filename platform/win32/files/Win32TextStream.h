#pragma once

#include "platform/FileSystem.h"
#include "platform/win32/system/Handle.h"

namespace ambrio {

// A text file in the system's code page. Others may read it and append to it meanwhile; a line is
// written in one piece, so that the lines of two programs never mix.
class Win32TextStream : public TextStream {
  public:
    // Throws RuntimeError when the file cannot be opened or made.
    Win32TextStream(const std::wstring& extendedPath, bool isToBeFlushed);
    void WriteLine(const std::wstring& text) override;
    void Flush() override;

  private:
    UniqueHandle file_;
    bool isToBeFlushed_;
};

}  // namespace ambrio
