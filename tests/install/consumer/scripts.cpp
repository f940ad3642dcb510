#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>

#include "console/ScriptConsole.h"
#include "host/ribo/COSNamespace.h"
#include "host/ribo/COSNamespaceInfo.h"
#include "host/ribo/factory/CopyableDataTypeClassInfo.h"

/// A value of this program's own, which scripts get as "own.Point".
struct Point {
    bool operator==(const Point& other) const { return x == other.x && y == other.y; }

    double x = 0;
    double y = 0;
};

template <>
struct ribo::factory::TypeOf<Point> : InstanceType<Point> {
    DOVA_RIBO_TYPE_NAME("own.Point")
};

namespace {

/// The class-object system ends what it is given with `std::free`.
template <class T>
T* allocated() {
    void* storage = std::malloc(sizeof(T));
    return storage != nullptr ? new (storage) T : throw std::bad_alloc();
}

class PointClass : public ribo::factory::CopyableDataTypeClassInfo<Point> {
public:
    PointClass() : COSClassInfo("Point", "own Point") {}

private:
    void describeOwnMembers() override {
        constructor([](double x, double y) { return Point{x, y}; });
        property("X", [](const Point& self) { return self.x; });
        method("move", [](Point& self, const Point& by) {
            self.x += by.x;
            self.y += by.y;
        });
    }
};

class OwnNamespace : public ribo::COSNamespaceInfo {
public:
    ribo::InternedString getName() const override { return ribo::internal::makeInterned("own"); }
    bool isDestructible() const override { return true; }
    void listMembers(ribo::COSNamespace& self) const override {
        self.addClass(allocated<PointClass>());
    }
};

}  // namespace

/// Runs the script that is its argument, with a class of its own.
int main(int, char** argv) {
    ribo::COSNamespace::addNamespace(allocated<OwnNamespace>());
    try {
        DOVA::console::ScriptConsole().run(argv[1], "argument");
    } catch (const std::exception& error) {
        std::cerr << error.what() << "\n";
        return 1;
    }
}
