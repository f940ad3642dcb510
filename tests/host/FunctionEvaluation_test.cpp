#include "host/FunctionEvaluation.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "support/RowNames.h"

namespace {

using host::ArrayPointer;
using Inputs = std::vector<const kaArray*>;
using Outputs = std::vector<ArrayPointer>;

host::Function giving(const std::vector<double>& values) {
    return [values](const Inputs&, int) {
        Outputs result;
        for (const double value : values) {
            result.emplace_back(kaCreateDoubleScalar(value));
        }
        return result;
    };
}

/// The message of a failure, otherwise the first output; with two inputs, 5 and 6.
std::string evaluate(const char* name, int outputCount) {
    const ArrayPointer five(kaCreateDoubleScalar(5));
    const ArrayPointer six(kaCreateDoubleScalar(6));
    const kaArray* inputs[] = {five.get(), six.get()};
    kaArray* outputs[3] = {};
    vnsvDiagnostic* diagnostic = vnsvFEVAL_NoThrow(name, outputCount, outputs, 2, inputs);
    const std::string message = vnsvGetDiagnosticMessage(diagnostic);
    vnsvDiscardDiagnostic(diagnostic);
    const ArrayPointer first(outputs[0]);
    const ArrayPointer second(outputs[1]);
    EXPECT_TRUE(message.empty() || !first) << "an output in spite of the failure";
    return message + (first ? std::to_string(static_cast<int>(kaGetScalar(first.get()))) : "");
}

using DOVA::test::operator<<;

struct Row {
    const char* name;
    host::Function function;
    int outputCount;
    const char* result;
};

const Row rows[] = {
    {"tooMany", giving({1, 2, 3}), 2, "1"},
    {"noneWanted", giving({1}), 0, ""},
    {"seesInputsAndHowManyAreWanted",
     [](const Inputs& in, int wanted) {
         return giving({10 * kaGetScalar(in.at(1)) + wanted})({}, 1);
     },
     1, "61"},
    {"tooFew", giving({1}), 2, "Function 'test.f' returned too few values."},
    {"throws", [](const Inputs&, int) -> Outputs { throw std::runtime_error("No licence."); }, 1,
     "No licence."},
    {"throwsSomethingElse", [](const Inputs&, int) -> Outputs { throw 1; }, 1,
     "Function 'test.f' failed."},
    {"unknown", {}, 1, "Undefined function 'test.f'."},
    {"negativeCount", giving({1}), -1, "Invalid function name or number of arguments."},
};

class Evaluation : public testing::TestWithParam<Row> {};

TEST_P(Evaluation, GivesOutputsOrADiagnostic) {
    host::registerFunction("test.f", GetParam().function);
    EXPECT_EQ(evaluate("test.f", GetParam().outputCount), GetParam().result);
    host::registerFunction("test.f", {});
}

INSTANTIATE_TEST_SUITE_P(All, Evaluation, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

TEST(FunctionRegistry, FunctionMayReplaceItselfAndCallOthersWhileItRuns) {
    host::registerFunction("test.outer", [](const Inputs&, int) {
        host::registerFunction("test.outer", giving({2}));
        EXPECT_EQ(evaluate(nullptr, 1), "Invalid function name or number of arguments.");
        return giving({1})({}, 1);
    });
    EXPECT_EQ(evaluate("test.outer", 1), "1");
    EXPECT_EQ(evaluate("test.outer", 1), "2");
    host::registerFunction("test.outer", {});
}

}  // namespace
