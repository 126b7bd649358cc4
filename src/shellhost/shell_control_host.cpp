#include "src/shellhost/shell_control_host.h"

#include <utility>

#include "src/framework/com/com_guard.h"
#include "src/shellhost/control_container.h"
#include "src/shellhost/event_sinks.h"

namespace file_explorer {

void ShellControlHost::TakeDown() noexcept {
  // 1. The explorer hears nothing of what the control says while it goes; a sink that the control keeps longer
  //    than it should finds no host.
  callback = nullptr;
  if (eventSink) eventSink->SetHost(nullptr);
  eventSink = nullptr;
  // 2. The control drops the sink.
  connection.Disconnect();
  // 3. The dispatch interface goes before the site, so that the site's reference to the control is the last one.
  ComPtr<IDispatch> dispatch = std::move(control);
  RunForeignCode([&] { dispatch.Reset(); });
  // 4. The control leaves its window, is closed and released. The site is out of reach by then: what the control
  //    asks the explorer meanwhile finds no control.
  const ComPtr<IUnknown> detached = std::move(site);
  if (CControlSite* const controlSite = ControlSiteOf(detached.Get())) controlSite->Detach();
  // 5. Site and sink go.
  sink.Reset();
}

}  // namespace file_explorer
