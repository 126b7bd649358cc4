#include "src/explorer/item_colors.h"

#include <optional>

#include "src/explorer/item_name.h"
#include "src/filter/category_lookup.h"
#include "src/framework/module_context.h"

namespace file_explorer {

LRESULT ItemColors::OnNotification(NMHDR& header, const Receiver& receiver) {
  auto& draw = reinterpret_cast<NMLVCUSTOMDRAW&>(header);
  const DWORD stage = draw.nmcd.dwDrawStage;
  const bool selected = (draw.nmcd.uItemState & CDIS_SELECTED) != 0;
  const LRESULT answer = receiver.PassOn(header);
  if (stage == CDDS_PREPAINT) return answer | CDRF_NOTIFYITEMDRAW;
  // A control that takes the mark of a selected item away shows its selection in a colour of its own.
  const bool ownSelection = selected && (draw.nmcd.uItemState & CDIS_SELECTED) == 0;
  if (stage == CDDS_ITEMPREPAINT && (answer & CDRF_SKIPDEFAULT) == 0 && !ownSelection) ColorItem(draw);
  return answer;
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
