#include "config/model/CentreForm.h"

namespace ambrio {

void CentreForm(FormPlace& child, const FormPlace& parent) {
    child.Top = (parent.Height - child.Height) / 2 + parent.Top;
    child.Left = (parent.Width - child.Width) / 2 + parent.Left;
}

}  // namespace ambrio
