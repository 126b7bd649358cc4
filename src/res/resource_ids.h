// Numbers of the module's resources that have no name.
#pragma once

#define IDR_MODULE_MANIFEST 2
#define IDC_ABOUT_ICON 100
