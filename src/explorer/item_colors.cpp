#include "src/explorer/item_colors.h"

#include <optional>

#include "base/window/high_contrast.h"
#include "src/explorer/item_name.h"
#include "src/filter/category_lookup.h"
#include "src/framework/module_context.h"

namespace file_explorer {

LRESULT ItemColors::OnNotification(NMHDR& header, const Receiver& receiver) {
  auto& draw = reinterpret_cast<NMLVCUSTOMDRAW&>(header);
  const DWORD stage = draw.nmcd.dwDrawStage;
  const bool marked = (draw.nmcd.uItemState & CDIS_SELECTED) != 0;
  // Judged once a painting, before it begins: the object may be gone when the control has answered.
  if (stage == CDDS_PREPAINT) isHighContrast_ = base::IsHighContrast();
  const bool isColored = stage == CDDS_ITEMPREPAINT && !isHighContrast_;
  const LRESULT answer = receiver.PassOn(header);
  if (stage == CDDS_PREPAINT) return answer | CDRF_NOTIFYITEMDRAW;
  const bool unmarked = marked && (draw.nmcd.uItemState & CDIS_SELECTED) == 0;
  if (isColored && (answer & CDRF_SKIPDEFAULT) == 0 && !(unmarked && IsSelected(draw))) ColorItem(draw);
  return answer;
}

// A control that takes the mark of a selected item away shows its selection in a colour of its own. The mark alone does
// not tell: of a list that always shows its selection every item may carry it.
bool ItemColors::IsSelected(const NMLVCUSTOMDRAW& draw) {
  return (SendMessageA(draw.nmcd.hdr.hwndFrom, LVM_GETITEMSTATE, draw.nmcd.dwItemSpec, LVIS_SELECTED) &
          LVIS_SELECTED) != 0;
}

void ItemColors::ColorItem(NMLVCUSTOMDRAW& draw) {
  try {
    const ModuleContext context;
    ItemName name;
    if (!name.Read(draw.nmcd.hdr.hwndFrom, static_cast<int>(draw.nmcd.dwItemSpec))) return;
    const std::optional<COLORREF> color = CategoryColorFor(name.text());
    if (color) draw.clrTextBk = *color;
  } catch (...) {
    // An item without its colour is better than none.
  }
}

}  // namespace file_explorer
