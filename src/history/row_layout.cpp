#include "src/history/row_layout.h"

#include <algorithm>
#include <cstdio>

namespace file_explorer {

std::string LastAccessText(const HistoryTime& local) {
  static constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  if (local.month < 1 || local.month > 12) return std::string();
  char text[64];
  std::snprintf(text, sizeof(text), "Last access: %s %d %d, %d:%.2d", kMonths[local.month - 1], local.day,
                local.year, local.hour, local.minute);
  return text;
}

int NextRow(RowStep step, int current, int count, int rowsOnPage) {
  if (count <= 0) return -1;
  const int page = std::max(1, rowsOnPage - 1);
  int next = current;
  switch (step) {
    case RowStep::kUp:
      next = current < 0 ? count - 1 : current - 1;
      break;
    case RowStep::kDown:
      next = current + 1;
      break;
    case RowStep::kPageUp:
      next = current - page;
      break;
    case RowStep::kPageDown:
      next = current + page;
      break;
    case RowStep::kFirst:
      next = 0;
      break;
    case RowStep::kLast:
      next = count - 1;
      break;
  }
  return std::clamp(next, 0, count - 1);
}

}  // namespace file_explorer
