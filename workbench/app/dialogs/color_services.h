// The colour services that the host offers to its plug-ins. Colours are three floats from 0.0 to 1.0; a byte
// of the screen's colour is the float times 255, truncated.
#pragma once

#include <windows.h>

namespace workbench {

// Lets the user pick a colour, modal to dialog; title (8-bit text) names what the colour is for. True when
// the colour was changed; a value whose byte stayed the same keeps its exact float.
bool PickColor(HWND dialog, const char* title, float* r, float* g, float* b);

// Repaints the owner-drawn colour button of a dialog at once; the dialog answers the WM_DRAWITEM that this
// causes with DrawColorButton and the new colour.
void RepaintColorButton(HWND dialog, int controlId, float r, float g, float b);

// Draws an owner-drawn colour button: a button's edge (pushed in while it is pressed), a swatch of the
// colour, the focus frame; greyed while it is disabled.
void DrawColorButton(const DRAWITEMSTRUCT* item, float r, float g, float b);

}  // namespace workbench
