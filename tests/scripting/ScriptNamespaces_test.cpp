#include <gtest/gtest.h>

#include <QJsonDocument>
#include <algorithm>

#include "ScarceMemory.h"
#include "core/ModuleEntry.h"
#include "host/foundation/bad_alloc.h"
#include "host/ribo/COSNamespace.h"
#include "host/ribo/COSNamespaceInfo.h"
#include "scripting/ScriptNamespaces.h"
#include "scripting/TestAPI.h"
#include "support/JsonRows.h"

namespace DOVA::test {
namespace {

using ribo::COSNamespace;
using ribo::factory::DataType;
using ribo::factory::RiboMethod;
using ribo::internal::makeInterned;

std::string joined(const std::vector<const DataType*>& types) {
    std::string names;
    for (const DataType* type : types) {
        names += (names.empty() ? "" : ", ") + type->getName().text();
    }
    return names;
}

std::string shown(const RiboMethod& method) {
    const auto& signature = method.getSignature();
    return (method.getAttributes().isStatic ? "static " : "") + method.getName().text() + "(" +
           joined(signature.arguments) + ")" + (signature.results.empty() ? "" : " ") +
           joined(signature.results);
}

class ScriptNamespacesTest : public testing::Test {
protected:
    static void SetUpTestSuite() { initialize_dova2_web(); }

    COSNamespace& named(const char* fullName) {
        return *COSNamespace::getNamespace(makeInterned(fullName));
    }
};

TEST_F(ScriptNamespacesTest, listTheirFunctionsAndClassesInOrder) {
    std::string functions;
    for (const RiboMethod& function : named("dova.web").getFunctions()) {
        functions += shown(function) + "; ";
    }
    EXPECT_EQ(functions,
              "init(); KORVIDOnlineFlag() logical scalar; KORVIDOnlineFlag(logical scalar) logical "
              "scalar; resetKORVIDOnlineFlag(); ");
    std::string classes;
    for (const ribo::ClassPointer& each : named("dova.web").getClasses()) {
        classes += each->getFullName().text() + " ";
        EXPECT_TRUE(each->isSealed() && !each->isHandleClass() && !each->isAbstract());
    }
    EXPECT_EQ(classes, "dova.web.JSONObject dova.web.JSONValue dova.web.JSONArray ");
    EXPECT_EQ(shown(named("dova").getFunctions().at(0)), "init()");
}

TEST_F(ScriptNamespacesTest, theTestsPackageIsMadeOnce) {
    const auto isTests = [](COSNamespace* each) { return each->getName().text() == "tests"; };
    const auto inside = [&] { return named("dova").getInnerNamespaces(); };
    const auto count = [&] {
        const auto all = inside();
        return std::count_if(all.begin(), all.end(), isTests);
    };
    EXPECT_EQ(count(), 0);
    COSNamespace* tests = TestAPI::getTestsPackage();
    ASSERT_TRUE(tests);
    EXPECT_EQ(tests->getFullName().text(), "dova.tests");
    EXPECT_EQ(TestAPI::getTestsPackage(), tests);
    EXPECT_EQ(count(), 1);
    EXPECT_TRUE(tests->getFunctions().empty() && tests->getClasses().empty());
    for (COSNamespace* each : inside()) {
        const ribo::COSNamespaceInfo& info = each->getInfo();
        EXPECT_TRUE(info.isDestructible() && info.isLocked() && !info.canLoadDynamicContent());
    }
}

TEST_F(ScriptNamespacesTest, wantOfMemoryIsTheHostsErrorAndLeavesNothingHalfMade) {
    const auto classCount = [&] {
        addScriptNamespaces();
        TestAPI::getTestsPackage();
        return named("dova.web").getClasses().size();
    };
    int failures = 0;
    for (bool isMade = false; !isMade;) {
        detachScriptNamespaces();
        try {
            const ScarceMemory memory(failures);
            isMade = classCount() == 3;
            ASSERT_TRUE(isMade);
        } catch (const foundation::bad_alloc&) {
            ++failures;
        }
        EXPECT_EQ(classCount(), 3u) << "the next who asks gets everything";
    }
    EXPECT_EQ(failures, 6) << "three namespaces, three classes";
    detachScriptNamespaces();
    addScriptNamespaces();
}

QString shown(const ribo::factory::RiboProperty& property) {
    return QString::fromStdString(property.getName().text() + ": " +
                                  property.getType().getName().text() +
                                  (property.isReadOnly() ? "" : ", written") +
                                  (property.getAttributes().isConstant ? ", constant" : "") +
                                  (property.getAttributes().isHidden ? ", hidden" : ""));
}

QStringList membersOf(const std::string& name) {
    const auto& members = COSNamespace::getClass(makeInterned(std::string(name)))->getMembers();
    QStringList lines;
    for (const auto& property : members.getProperties()) {
        lines.append(shown(property));
    }
    for (const RiboMethod& method : members.getMethods()) {
        lines.append(QString::fromStdString(shown(method)));
    }
    return lines;
}

TEST_F(ScriptNamespacesTest, classesHaveTheirMembersInOrder) {
    const QJsonObject classes = readJson(SCRIPT_MEMBERS_FILE).object();
    EXPECT_EQ(classes.size(), 3);
    for (auto each = classes.begin(); each != classes.end(); ++each) {
        EXPECT_EQ(membersOf(each.key().toStdString()), each.value().toVariant().toStringList());
    }
}

}  // namespace
}  // namespace DOVA::test
