#include "src/shellhost/shell_control_host.h"

#include "src/framework/com/com_guard.h"
#include "src/shellhost/control_container.h"
#include "src/shellhost/event_sinks.h"

namespace file_explorer {

ShellControlHost::~ShellControlHost() {
  // 1. The explorer hears nothing of what the control says while it goes; a sink that the control keeps
  // longer than it
  //    should finds no host.
  callback = nullptr;
  if (eventSink) eventSink->SetHost(nullptr);
  // 2. The control drops the sink.
  connection.Disconnect();
  // 3. The dispatch interface goes before the site, so that the site's reference to the control is the last
  // one.
  RunForeignCode([&] { control.Reset(); });
  // 4. The control leaves its window, is closed and released.
  if (CControlSite* const controlSite = ControlSiteOf(site.Get())) controlSite->Detach();
  // 5. Site and sink go with the fields.
}

}  // namespace file_explorer
