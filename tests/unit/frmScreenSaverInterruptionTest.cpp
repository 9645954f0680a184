#include <gtest/gtest.h>

#include "tests/unit/FormThatCopies.h"

namespace ambrio {
namespace {

// A key is pressed while a file is copied, which takes its time.
class KeyDuringCopy : public MemoryFileSystem {
  public:
    void CopyFile(const std::wstring& source, const std::wstring& destination, bool overwrite,
                  const Yield& yield) override {
        yield();
        BeforeTheKey = Nothings;
        PostMessageW(Form, WM_KEYDOWN, VK_SPACE, 0);
        yield();
        AfterTheKey = Nothings;
        MemoryFileSystem::CopyFile(source, destination, overwrite, yield);
    }
    void ExpectNothing() override { ++Nothings; }

    HWND Form = nullptr;
    int Nothings = 0;
    int BeforeTheKey = -1;
    int AfterTheKey = -1;
};

// What was copied ahead must not lie about until a long copy has come to its end.
TEST(frmScreenSaverInterruptionTest, NothingIsExpectedAnyMoreAsSoonAsAKeyIsPressed) {
    FormThatCopies<KeyDuringCopy> form;
    form.Run();
    EXPECT_EQ(form.Disk.BeforeTheKey, 0);
    EXPECT_EQ(form.Disk.AfterTheKey, 1);
}

}  // namespace
}  // namespace ambrio
