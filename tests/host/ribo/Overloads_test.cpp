#include <cmath>
#include <limits>

#include "WorkshopTest.h"

namespace host::test {

namespace {

using Overloads = WorkshopTest;
using Owned = std::vector<ArrayPointer>;

template <class... T>
Owned values(T... each) {
    Owned result;
    (result.push_back(ArrayPointer(std::move(each))), ...);
    return result;
}

ArrayPointer cells(Owned elements) {
    std::vector<kaArray*> raw;
    for (ArrayPointer& element : elements) {
        raw.push_back(element.release());
    }
    return ArrayPointer(kaCreateCellMatrix(1, raw.size(), raw.data()));
}

ArrayPointer text(std::u16string value) {
    return made(std::move(value));
}

struct Row {
    const char* name;
    Owned arguments;
    const char* chosen;
};

/// What the function of the workshop gives for the arguments; a refusal without what it takes.
std::string chosenBy(const ribo::OverloadSet& function, const Owned& arguments) {
    std::vector<const kaArray*> borrowed;
    for (const ArrayPointer& argument : arguments) {
        borrowed.push_back(argument.get());
    }
    const std::string chosen = call(function, borrowed);
    return chosen.substr(0, chosen.find(". It takes"));
}

TEST_F(Overloads, ExactComesBeforeConvertedComesBeforeAnything) {
    const Row rows[] = {
        {"none", values(), "nothing"},
        {"null", values(nullptr), "any"},
        {"logical", values(made(true)), "logical"},
        {"logicals", values(kaCreateLogicalMatrix(1, 2, nullptr)), "any"},
        {"int32", values(made(std::int32_t(5))), "int32"},
        {"uint64", values(made(std::uint64_t(5))), "uint64"},
        {"wholeDouble", values(made(5.0)), "double"},
        {"doubles", values(kaCreateDoubleMatrix(1, 2, nullptr)), "any"},
        {"noDouble", values(kaCreateDoubleMatrix(0, 0, nullptr)), "any"},
        {"text", values(text(u"a")), "text"},
        {"emptyText", values(text(u"")), "text"},
        {"columnOfCharacters", values(kaCreateCharMatrix(2, 1, u"ab")), "any"},
        {"cellsOfTexts", values(cells(values(text(u"a"), text(u"")))), "texts"},
        {"noCells", values(cells({})), "texts"},
        {"cellsOfMore", values(cells(values(text(u"a"), made(1.0)))), "any"},
        {"emptyCell", values(cells(values(nullptr))), "any"},
        {"struct", values(kaCreateStructScalar(0, nullptr, nullptr)), "any"},
        {"crate", values(made(Crate())), "crate"},
        {"lamp", values(made(Lamp())), "lamp"},
        {"crateInCell", values(cells(values(made(Crate())))), "any"},
        {"firstOfEquals", values(made(std::int32_t(1)), made(std::int32_t(2))), "int32, any"},
        {"onlyOneForTheSecond", values(text(u"a"), made(std::int32_t(2))), "any, int32"},
        {"exactTwice", values(made(1.0), made(2.0)), "double, double"},
        {"convertedAndExact", values(made(std::int32_t(1)), made(2.5)), "double, double"},
        {"noneForThese", values(text(u"a"), made(Crate())),
         "ribo:NoMatchingSignature: \"pick\" does not take (string, workshop.Crate)"},
        {"noneForThree", values(made(1.0), nullptr, cells({})),
         "ribo:NoMatchingSignature: \"pick\" does not take (double scalar, 0x0 double, 1x0 cell)"},
    };
    const ribo::OverloadSet& pick = *workshop()->getFunction(interned("pick"));
    for (const Row& row : rows) {
        EXPECT_EQ(chosenBy(pick, row.arguments), row.chosen) << row.name;
    }
}

TEST_F(Overloads, ANumberIsConvertedOnlyIfItStaysTheSame) {
    constexpr double infinite = std::numeric_limits<double>::infinity();
    constexpr double wholeLimit = 9007199254740992;  // 2^53
    constexpr auto largest = std::numeric_limits<std::uint64_t>::max();
    const Row rows[] = {
        {"int32", values(made(2147483647.0)), "2147483647"},
        {"int32", values(made(-2147483648.0)), "-2147483648"},
        {"int32", values(made(2147483648.0)), nullptr},
        {"int32", values(made(-2147483649.0)), nullptr},
        {"int32", values(made(0.5)), nullptr},
        {"int32", values(made(std::nan(""))), nullptr},
        {"int32", values(made(-infinite)), nullptr},
        {"int32", values(made(std::uint64_t(2147483647))), "2147483647"},
        {"int32", values(made(largest)), nullptr},
        {"int32", values(made(true)), nullptr},
        {"int32", values(text(u"1")), nullptr},
        {"uint64", values(made(largest)), "18446744073709551615"},
        {"uint64", values(made(wholeLimit)), "9007199254740992"},
        {"uint64", values(made(wholeLimit + 2)), nullptr},
        {"uint64", values(made(-1.0)), nullptr},
        {"uint64", values(made(std::int32_t(-1))), nullptr},
        {"uint64", values(made(std::int32_t(7))), "7"},
        {"double", values(made(std::int32_t(-7))), "-7"},
        {"double", values(made(std::uint64_t(1) << 62)), "4.61168601842739e+18"},
        {"double", values(made(true)), nullptr},
        {"double", values(text(u"")), nullptr},
        {"logical", values(made(true)), "true"},
        {"logical", values(made(1.0)), nullptr},
        {"texts", values(text(u"a")), "1x1 cell"},
    };
    int number = 0;
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.name) + " in row " + std::to_string(number++));
        const auto& same = *workshop()->getFunction(interned("same_" + std::string(row.name)));
        const std::string given = chosenBy(same, row.arguments);
        EXPECT_EQ(row.chosen != nullptr ? row.chosen : "ribo:NoMatchingSignature",
                  row.chosen != nullptr ? given : given.substr(0, given.rfind(": ")));
    }
}

TEST_F(Overloads, ARefusalListsWhatIsTakenAndRunsNothing) {
    const ArrayPointer crate = made(Crate(1));
    const ArrayPointer wrong = text(u"heavy");
    EXPECT_EQ(invoke("add", {crate.get(), wrong.get()}),
              "ribo:NoMatchingSignature: \"add\" does not take (workshop.Crate, string). It takes "
              "(workshop.Crate, int32 scalar) or (workshop.Crate, workshop.Crate).");
    EXPECT_EQ(ribo::display(crate.get()), "workshop.Crate (Weight: 1, Label: , Colour: Green)");
}

}  // namespace

}  // namespace host::test
