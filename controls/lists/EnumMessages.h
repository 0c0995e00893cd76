#pragma once

#include "framework/subclass/SubClass.h"

namespace kiv
{

// What the user is told when the host's database does not answer, for the description and for the list alike.
inline void TellTableUnread()
{
    AppMsgBox(L"Could not read enum table from database.", MB_ICONSTOP);
}

} // namespace kiv
