#pragma once

#include <functional>
#include <memory>
#include <string>

#include "model/Export.h"

namespace tdom {

/// Shows the document to the pages: all elements of all models of the process as one JSON object,
/// over the connector `tdom_message_service` on the channel `tdom_channel`.
///
/// A page asks with `{"snapshot":CLIENT}` for everything, or with
/// `{"snapshot":CLIENT,"properties":[NAME...]}` for these properties and the tag. Any other text is
/// dropped; no text changes an element. The page gets `{"version":N,"snapshot":DOCUMENT}`. From
/// then on each turn of the main loop that changed something sends
/// `{"version":N,"patch":OPERATIONS}`, a JSON Patch (RFC 6902), where N counts up by one. What is
/// committed as one batch is in one patch. In the document an element stands under its UUID, with
/// its type and the properties whose value is not the default.
///
/// Each page hears what its own last request names. While all want the same, one text on
/// `tdom_channel` goes to all; else each page has its own texts, on the channel `tdom_channel` +
/// "/"
/// + CLIENT. The mirror knows 16 pages; when another one asks, it forgets the first.
///
/// Until the first page asks, the models have no listener, and a write costs what it costs without
/// a mirror; so do later writes of properties that no page wants. From then on the mirror is the
/// listener of every model, of later ones too, in place of any other, and keeps them alive until it
/// goes.
///
/// One mirror in a process. It belongs to the message bus's delivery thread; the models must be
/// used on that thread, too.
class DOVA_MODEL_EXPORT DocumentMirror {
public:
    /// Makes the main loop run `call` soon, when the present turn is over, on the same thread. It
    /// may run or drop it after the mirror has gone.
    using Later = std::function<void(std::function<void()> call)>;

    /// Attaches to the process's message bus. `later` is not empty.
    explicit DocumentMirror(Later later);
    DocumentMirror(const DocumentMirror&) = delete;
    DocumentMirror& operator=(const DocumentMirror&) = delete;
    /// Leaves the models without a listener. Changes that wait to be sent are dropped.
    ~DocumentMirror();

    /// Forgets what every page but this one asked for.
    void forgetOthers(const std::string& client);

private:
    class Implementation;
    std::shared_ptr<Implementation> m_implementation;
};

}  // namespace tdom
