// Numbers of the library's resources, for the resource script and for the code that registers the controls.
// Macros, because the resource compiler knows nothing else.
#pragma once

#define KIV_TOOLBOX_ENUMLIST 30000
#define KIV_TOOLBOX_YESNO 30001
#define KIV_TOOLBOX_DATEBOX 30002
#define KIV_TOOLBOX_PICCOMMAND 30003
#define KIV_TOOLBOX_CHKCOMBO 30004
#define KIV_TOOLBOX_PICLITE 30005
#define KIV_TOOLBOX_PERCENTBOX 30006
#define KIV_TOOLBOX_NUMBERBOX 30007
#define KIV_TOOLBOX_CURRENCYBOX 30008
