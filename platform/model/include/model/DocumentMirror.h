#pragma once

#include <functional>
#include <memory>
#include <string>

#include "model/Export.h"

namespace tdom {

/// Shows the document to the pages: all elements of all models of the process as one JSON object,
/// over the connector `tdom_message_service` on the channel `tdom_channel`.
///
/// A page asks with `{"snapshot":CLIENT}`, or with `{"snapshot":CLIENT,"properties":[NAME...]}`
/// when it wants no others: writes of what nobody wants cost what they cost without a mirror. Any
/// other text is dropped. The page gets `{"version":N,"snapshot":DOCUMENT}`, and from then on every
/// turn of the main loop in which something was committed sends `{"version":N,"patch":OPERATIONS}`
/// with a JSON Patch (RFC 6902), where N counts up by one. What is committed as one batch is never
/// spread over two patches. In the document an element stands under its UUID with its type and
/// those properties that have not the default value. Nothing that a page sends changes an element.
///
/// Each page is told what its own last request names. While all want the same, one text on
/// `tdom_channel` tells them all; else each has its own, on the channel that continues that with
/// "/" and CLIENT. Of more than 16 pages the first are forgotten.
///
/// Until the first page asks, the models have no listener: writes cost what they cost without a
/// mirror. From then on the mirror is the listener of every model, also of later ones, in place of
/// any other, and keeps them alive until it goes.
///
/// One mirror in a process. It belongs to the message bus's delivery thread, and the models have to
/// be used on that thread too.
class DOVA_MODEL_EXPORT DocumentMirror {
public:
    /// Has the main loop make `call` soon, when the present turn is over, on the same thread. A
    /// call may be made or dropped after the mirror has gone.
    using Later = std::function<void(std::function<void()> call)>;

    /// Attaches to the process's message bus.
    explicit DocumentMirror(Later later);
    DocumentMirror(const DocumentMirror&) = delete;
    DocumentMirror& operator=(const DocumentMirror&) = delete;
    /// Leaves the models without a listener. Changes that were not sent yet are not sent any more.
    ~DocumentMirror();

    /// Every page but this one is gone: what it asked for counts no more.
    void forgetOthers(const std::string& client);

private:
    class Implementation;
    std::shared_ptr<Implementation> m_implementation;
};

}  // namespace tdom
