#include "controls/entry/EntryControl.h"

namespace kiv
{

BoxState StateOf(const TextBox& box)
{
    const TextBox::Selection selected = box.Selected();
    return {box.Text(), selected.Start, selected.Length};
}

} // namespace kiv
