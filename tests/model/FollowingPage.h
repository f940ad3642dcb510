#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

namespace model_test {

/// Follows the document as a page does: takes snapshots and applies JSON Patches (RFC 6902) of
/// "add", "remove" and "replace". A patch that does not fit leaves `fits` false.
class FollowingPage {
public:
    QJsonObject document;
    bool fits = true;

    void receive(const QJsonArray& messages) {
        for (const QJsonValue message : messages) {
            apply(message["patch"].toArray());
            if (message["snapshot"].isObject()) {
                document = message["snapshot"].toObject();
            }
        }
    }

private:
    void apply(const QJsonArray& operations) {
        for (const QJsonValue operation : operations) {
            QStringList steps;
            for (QString step : operation["path"].toString().mid(1).split('/')) {
                steps += step.replace("~1", "/").replace("~0", "~");
            }
            document = changed(document, steps, operation).toObject();
        }
    }

    QJsonValue changed(const QJsonValue& value, const QStringList& path, const QJsonValue& by) {
        return value.isObject() ? changedMember(value.toObject(), path, by)
                                : changedItem(value.toArray(), path, by);
    }

    QJsonValue changedMember(QJsonObject object, const QStringList& path, const QJsonValue& by) {
        const QString& key = path.first();
        fits = fits && (object.contains(key) || (path.size() == 1 && by["op"] == "add"));
        if (path.size() > 1) {
            object[key] = changed(object[key], path.mid(1), by);
        } else if (by["op"] == "remove") {
            object.remove(key);
        } else {
            object[key] = by["value"];
        }
        return object;
    }

    QJsonValue changedItem(QJsonArray array, const QStringList& path, const QJsonValue& by) {
        bool isNumber = false;
        const int index = path.first().toInt(&isNumber);
        const bool isAdd = by["op"] == "add";
        fits = fits && isNumber && path.size() == 1 && index >= 0 &&
               index < array.size() + (isAdd ? 1 : 0);
        if (fits && isAdd) {
            array.insert(index, by["value"]);
        } else if (fits) {
            array.removeAt(index);
        }
        return array;
    }
};

}  // namespace model_test
