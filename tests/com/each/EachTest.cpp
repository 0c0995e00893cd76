#include "tests/com/each/EachTest.h"

#include "tests/support/Text.h"

namespace kiv::test
{

std::string ClassName::operator()(const testing::TestParamInfo<PublishedClass>& each) const
{
    return Narrow(each.param.Name);
}

} // namespace kiv::test
