#include "tests/com/ControlState.h"

#include "runtime/com/Bstr.h"
#include "runtime/com/Errors.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/Text.h"

#include <ostream>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

bool ControlState::operator==(const ControlState& other) const
{
    return BackColor == other.BackColor && ForeColor == other.ForeColor && Enabled == other.Enabled &&
           Font == other.Font && YesText == other.YesText && NoText == other.NoText && Value == other.Value;
}

std::ostream& operator<<(std::ostream& out, const ControlState& state)
{
    return out << std::hex << "back " << state.BackColor << ", fore " << state.ForeColor << std::dec
               << (state.Enabled ? ", enabled" : ", disabled") << ", font (" << state.Font << "), yes \""
               << Narrow(state.YesText) << "\", no \"" << Narrow(state.NoText) << "\", value " << state.Value;
}

ControlState StateOf(_YesNo* control)
{
    ControlState state;
    VARIANT_BOOL enabled = VARIANT_FALSE;
    ComPtr<IFontDisp> font;
    Bstr yesText;
    Bstr noText;
    AnswerEnums value = Neither;
    Check(control->get_BackColor(&state.BackColor));
    Check(control->get_ForeColor(&state.ForeColor));
    Check(control->get_Enabled(&enabled));
    Check(control->get_Font(&font));
    Check(control->get_YesText(yesText.Receive()));
    Check(control->get_NoText(noText.Receive()));
    Check(control->get_Value(&value));
    state.Enabled = enabled != VARIANT_FALSE;
    state.Font = FactsOf(font.Get());
    state.YesText = yesText.View();
    state.NoText = noText.View();
    state.Value = value;
    return state;
}

void Apply(const ControlState& state, _YesNo* control)
{
    Check(control->put_BackColor(state.BackColor));
    Check(control->put_ForeColor(state.ForeColor));
    Check(control->put_Enabled(state.Enabled ? VARIANT_TRUE : VARIANT_FALSE));
    Check(control->putref_Font(MakeFont(state.Font).Get()));
    Check(control->put_YesText(Bstr(state.YesText).Get()));
    Check(control->put_NoText(Bstr(state.NoText).Get()));
    // Late-bound, because it may be a number that is no member of the enumeration.
    Check(PutByName(control, L"Value", Variant(state.Value)).Result);
}

} // namespace kiv::test
