#include "controls/lists/CodePicker.h"

#include "controls/lists/frmEnums.h"
#include "runtime/com/PerThread.h"

#include <utility>

namespace kiv
{

namespace
{

struct ThreadPicker
{
    frmEnums Form;
    bool Taken = false;
};

} // namespace

PickerTurn::PickerTurn() : taken_(!std::exchange(PerThread<ThreadPicker>().Taken, true)) {}

PickerTurn::~PickerTurn()
{
    if (taken_)
        PerThread<ThreadPicker>().Taken = false;
}

PickAnswer PickerTurn::PickCode(const PickRequest& request) const
{
    return PerThread<ThreadPicker>().Form.PickCode(request);
}

void PickerTurn::Leave()
{
    PerThread<ThreadPicker>().Form.Unload();
}

} // namespace kiv
