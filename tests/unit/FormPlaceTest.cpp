#include <cstdlib>

#include "config/frmAbout.h"
#include "config/frmBrowse.h"
#include "config/frmIncludeExclude.h"
#include "config/frmProperties.h"
#include "tests/unit/FormFixture.h"

namespace ambrio {
namespace {

// A plain window stands for the dialog that opens another one. It is larger than each of them, and
// its middle is not the screen's.
class FormPlaceTest : public FormTest {
  protected:
    ~FormPlaceTest() override { DestroyWindow(opener_); }

    void ExpectCentred(Form& form) {
        form.Load(opener_);
        const POINT middle = MiddleOf(opener_);
        const POINT own = MiddleOf(form.Handle());
        EXPECT_LE(std::abs(middle.x - own.x), 1) << own.x;
        EXPECT_LE(std::abs(middle.y - own.y), 1) << own.y;
    }

  private:
    static POINT MiddleOf(HWND window) {
        RECT place = {};
        GetWindowRect(window, &place);
        return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    }

    HWND opener_ = CreateWindowExW(0, L"Static", L"", WS_POPUP, 211, 153, 1400, 1100, nullptr,
                                   nullptr, GetModuleHandleW(nullptr), nullptr);
};

TEST_F(FormPlaceTest, ThePropertiesStandOverTheMiddleOfTheirOpener) {
    frmProperties form(Context);
    ExpectCentred(form);
}

TEST_F(FormPlaceTest, TheBrowseDialogStandsOverTheMiddleOfItsOpener) {
    frmBrowse form(Context, nullptr);
    ExpectCentred(form);
}

TEST_F(FormPlaceTest, TheFileSelectionStandsOverTheMiddleOfItsOpener) {
    frmIncludeExclude form(Context);
    ExpectCentred(form);
}

TEST_F(FormPlaceTest, TheAboutBoxStandsOverTheMiddleOfItsOpener) {
    frmAbout form(Context);
    ExpectCentred(form);
}

}  // namespace
}  // namespace ambrio
