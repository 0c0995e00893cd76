#pragma once

#include "host/container/Form.h"
#include "host/script/Script.h"

namespace kiv::host
{

// What else a script may count on.
struct ScriptMeans
{
    bool Database = false;
    bool Shot = false;
};

// Throws FormError, at its line, for the first step that names what is not there: an item, a property or
// method, an event, an argument that could be refused, a database, a place for the picture, a button that is
// held.
void CheckScript(const Script& script, const Form& form, const ScriptMeans& means);

} // namespace kiv::host
