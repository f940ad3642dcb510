#include "host/FunctionEvaluation.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

namespace {

using host::ArrayPointer;
using Inputs = std::vector<const kaArray*>;
using Outputs = std::vector<ArrayPointer>;

Outputs numbers(std::initializer_list<double> values) {
    Outputs result;
    for (const double value : values) {
        result.emplace_back(kaCreateDoubleScalar(value));
    }
    return result;
}

/// A function that is registered while the object lives.
class Registered {
public:
    Registered(std::string name, host::Function function) : m_name(std::move(name)) {
        host::registerFunction(m_name, std::move(function));
    }
    ~Registered() { host::registerFunction(m_name, {}); }

private:
    std::string m_name;
};

/// The message of the evaluation, empty on success; outputs beyond the first are ended.
std::string evaluate(const char* name, int outputCount, ArrayPointer& first,
                     const Inputs& inputs = {}) {
    kaArray* outputs[3] = {};
    vnsvDiagnostic* diagnostic = vnsvFEVAL_NoThrow(name, outputCount, outputs,
                                                   static_cast<int>(inputs.size()), inputs.data());
    first.reset(outputs[0]);
    kaDestroyArray(outputs[1]);
    const std::string message = vnsvGetDiagnosticMessage(diagnostic);
    vnsvDiscardDiagnostic(diagnostic);
    return message;
}

struct Row {
    const char* name;
    host::Function function;
    int outputCount;
    const char* message;  ///< empty on success
    double first;         ///< of the first output; -1 when there is none
};

const Row rows[] = {
    {"oneOutput", [](const Inputs&, int) { return numbers({7}); }, 1, "", 7},
    {"tooMany",
     [](const Inputs&, int) {
         return numbers({1, 2, 3});
     },
     2, "", 1},
    {"noneWanted", [](const Inputs&, int) { return numbers({1}); }, 0, "", -1},
    {"seesHowManyAreWanted",
     [](const Inputs&, int wanted) {
         return numbers({wanted * 1.0, 0});
     },
     2, "", 2},
    {"seesInputs", [](const Inputs& in, int) { return numbers({kaGetScalar(in.at(1))}); }, 1, "",
     6},
    {"tooFew", [](const Inputs&, int) { return numbers({1}); }, 2,
     "Function 'test.f' returned too few values.", -1},
    {"throws", [](const Inputs&, int) -> Outputs { throw std::runtime_error("No licence."); }, 1,
     "No licence.", -1},
    {"throwsSomethingElse", [](const Inputs&, int) -> Outputs { throw 1; }, 1,
     "Function 'test.f' failed.", -1},
    {"unknown", {}, 1, "Undefined function 'test.f'.", -1},
    {"negativeCount", [](const Inputs&, int) { return numbers({1}); }, -1,
     "Invalid function name or number of arguments.", -1},
};

class Evaluation : public testing::TestWithParam<Row> {};

TEST_P(Evaluation, GivesOutputsOrADiagnostic) {
    const Registered registered("test.f", GetParam().function);
    const ArrayPointer five(kaCreateDoubleScalar(5));
    const ArrayPointer six(kaCreateDoubleScalar(6));
    ArrayPointer first;
    EXPECT_EQ(evaluate("test.f", GetParam().outputCount, first, {five.get(), six.get()}),
              GetParam().message);
    EXPECT_EQ(first ? kaGetScalar(first.get()) : -1, GetParam().first);
}

INSTANTIATE_TEST_SUITE_P(All, Evaluation, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

TEST(FunctionRegistry, FunctionMayReplaceItselfAndCallOthersWhileItRuns) {
    std::string inner;
    const Registered outer("test.outer", [&inner](const Inputs&, int) {
        host::registerFunction("test.outer", [](const Inputs&, int) { return numbers({2}); });
        ArrayPointer result;
        inner = evaluate("test.missing", 1, result);
        return numbers({1});
    });
    ArrayPointer result;
    EXPECT_EQ(evaluate("test.outer", 1, result), "");
    EXPECT_EQ(kaGetScalar(result.get()), 1);
    EXPECT_EQ(inner, "Undefined function 'test.missing'.");
    EXPECT_EQ(evaluate("test.outer", 1, result), "");
    EXPECT_EQ(kaGetScalar(result.get()), 2);
}

TEST(FunctionRegistry, NoNameIsAnError) {
    ArrayPointer result;
    EXPECT_NE(evaluate(nullptr, 1, result), "");
    EXPECT_FALSE(result);
}

}  // namespace
