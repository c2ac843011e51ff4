// Argument parsing of the qtzq commands.
#include "args.h"
#include "tools/tool_harness.h"

namespace qtzq_tool_test {
namespace {

using namespace qtzq_cli;

TEST(Args, LongShortInlineRepeatedAndPositional) {
    const std::vector<OptionDef> options = {
        {"output", 'o', true, false}, {"material", 'm', true, true}, {"quiet", 'q', false, false}};
    const ParsedArgs args = parse_args(
        {"a", "-oout.png", "--material=x", "-m", "y", "-q", "-5", "--", "--not-an-option"},
        options);
    EXPECT_EQ(args.positionals, (std::vector<std::string>{"a", "-5", "--not-an-option"}));
    EXPECT_EQ(args.value("output"), "out.png");
    EXPECT_EQ(args.values("material"), (std::vector<std::string>{"x", "y"}));
    EXPECT_TRUE(args.has("quiet"));
    for (const std::vector<std::string>& wrong :
         {std::vector<std::string>{"--bogus"}, {"-o"}, {"-o", "a", "-o", "b"}, {"--quiet=yes"}})
        EXPECT_THROW(parse_args(wrong, options), UsageError) << wrong[0];
    EXPECT_THROW(parse_args({"--output", "12x"}, options).int_value("output", 0, 0, 100),
                 UsageError);
}

}  // namespace
}  // namespace qtzq_tool_test
