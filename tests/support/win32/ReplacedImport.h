#pragma once

namespace ambrio {

// While it lives, the calls that this program makes of one function of the system go to another
// one. The system's own modules are not concerned.
class ReplacedImport {
  public:
    // `library` has the function of that name and is loaded already, and the program imports it;
    // `replacement` has its signature. Throws std::runtime_error when there is no such function.
    // Where calls went before, be it another replacement, they go again afterwards.
    ReplacedImport(const wchar_t* library, const char* name, void* replacement);
    ~ReplacedImport();
    ReplacedImport(const ReplacedImport&) = delete;
    ReplacedImport& operator=(const ReplacedImport&) = delete;

  private:
    const char* name_;
    void* original_;
};

}  // namespace ambrio
