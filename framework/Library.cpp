#include "controls/amount/CurrencyBox.h"
#include "controls/amount/PercentBox.h"
#include "controls/choice/PicCommand.h"
#include "controls/choice/PicLite.h"
#include "controls/choice/YesNo.h"
#include "controls/lists/ChkCombo.h"
#include "controls/lists/EnumList.h"
#include "controls/masked/DateBox.h"
#include "controls/masked/NumberBox.h"
#include "framework/ModuleData.h"
#include "framework/Registration.h"
#include "runtime/com/Boundary.h"
#include "runtime/com/ComObject.h"
#include "runtime/com/MakeCom.h"
#include "runtime/com/Module.h"
#include "runtime/com/PerThread.h"

#include <olectl.h>

#include <algorithm>

namespace kiv
{

namespace
{

using Creator = HRESULT (*)(IUnknown* outer, REFIID iid, void** object) noexcept;

struct LibraryClass
{
    const ControlClass* Class;
    Creator Create;
};

template<class Control>
constexpr LibraryClass ClassOf = {&Control::Class, &CreateControl<Control>};

// Every class that the library offers.
constexpr LibraryClass Classes[] = {ClassOf<YesNo>, ClassOf<PicCommand>, ClassOf<PicLite>, ClassOf<NumberBox>,
                                    ClassOf<DateBox>, ClassOf<CurrencyBox>, ClassOf<PercentBox>,
                                    ClassOf<ChkCombo>, ClassOf<EnumList>,
