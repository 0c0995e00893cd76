#include "tests/gui/lists/CodeDatabase.h"

#include "runtime/com/MakeCom.h"
#include "tests/support/Files.h"
#include "tests/support/Text.h"

namespace kiv::test
{

std::string WhyMissing(const DatabaseEngine& engine)
{
    // The size counts the zero at the end.
    const bool missing = engine.Missing && GetEnvironmentVariableW(engine.Missing, nullptr, 0) > 1;
    return missing ? Narrow(RequiredVariable(engine.Missing)) : std::string();
}

Microsoft::WRL::ComPtr<host::Database> OpenCodes(const wchar_t* variable)
{
    return MakeCom<host::Database>(host::ConnectionStringOf(RequiredVariable(variable)));
}

} // namespace kiv::test
