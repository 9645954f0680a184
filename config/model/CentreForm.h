#pragma once

namespace ambrio {

// Where a form stands, in twips of the screen.
struct FormPlace {
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;
};

// Moves the child so that its middle is the parent's, also when part of it then lies off the
// screen.
void CentreForm(FormPlace& child, const FormPlace& parent);

}  // namespace ambrio
