#include "host/FunctionEvaluation.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using host::ArrayPointer;
using Inputs = std::vector<const kaArray*>;
using Outputs = std::vector<ArrayPointer>;

Outputs numbers(const std::vector<double>& values) {
    Outputs result;
    for (const double value : values) {
        result.emplace_back(kaCreateDoubleScalar(value));
    }
    return result;
}

/// The message of a failure, otherwise the first output; with two inputs, 5 and 6.
std::string evaluate(const char* name, int outputCount) {
    const Outputs given = numbers({5, 6});
    const kaArray* inputs[] = {given[0].get(), given[1].get()};
    kaArray* outputs[3] = {};
    vnsvDiagnostic* diagnostic = vnsvFEVAL_NoThrow(name, outputCount, outputs, 2, inputs);
    const std::string message = vnsvGetDiagnosticMessage(diagnostic);
    vnsvDiscardDiagnostic(diagnostic);
    const ArrayPointer first(outputs[0]);
    const ArrayPointer second(outputs[1]);
    EXPECT_TRUE(message.empty() || !first) << "an output in spite of the failure";
    return message + (first ? std::to_string(static_cast<int>(kaGetScalar(first.get()))) : "");
}

TEST(FunctionEvaluation, GivesOutputsOrADiagnostic) {
    struct {
        const char* name;
        host::Function function;
        int outputCount;
        const char* result;
    } const rows[] = {
        {"tooMany",
         [](auto&, int) {
             return numbers({1, 2, 3});
         },
         2, "1"},
        {"noneWanted", [](auto&, int) { return numbers({1}); }, 0, ""},
        {"seesInputsAndHowManyAreWanted",
         [](auto& in, int wanted) { return numbers({10 * kaGetScalar(in.at(1)) + wanted}); }, 1,
         "61"},
        {"tooFew", [](auto&, int) { return numbers({1}); }, 2,
         "Function 'test.f' returned too few values."},
        {"throws", [](auto&, int) -> Outputs { throw std::runtime_error("No licence."); }, 1,
         "No licence."},
        {"throwsSomethingElse", [](auto&, int) -> Outputs { throw 1; }, 1,
         "Function 'test.f' failed."},
        {"unknown", {}, 1, "Undefined function 'test.f'."},
        {"negativeCount", [](auto&, int) { return numbers({1}); }, -1,
         "Invalid function name or number of arguments."},
    };
    for (const auto& row : rows) {
        host::registerFunction("test.f", row.function);
        EXPECT_EQ(evaluate("test.f", row.outputCount), row.result) << row.name;
    }
    host::registerFunction("test.f", {});
}

TEST(FunctionEvaluation, AFunctionMayReplaceItselfAndCallOthersWhileItRuns) {
    host::registerFunction("test.outer", [](auto&, int) {
        host::registerFunction("test.outer", [](auto&, int) { return numbers({2}); });
        EXPECT_EQ(evaluate(nullptr, 1), "Invalid function name or number of arguments.");
        return numbers({1});
    });
    EXPECT_EQ(evaluate("test.outer", 1), "1");
    EXPECT_EQ(evaluate("test.outer", 1), "2");
    host::registerFunction("test.outer", {});
}

}  // namespace
