#include "Jsonpad.h"

#include <filesystem>

#include "json/JsonString.h"

namespace jsonpad {

Jsonpad::Jsonpad(Document& document, const JsonSchema& schema, const std::string& path)
    : m_document(document),
      m_schema(schema),
      m_fileName(toUtf16(std::filesystem::path(path).filename().string())) {}

void Jsonpad::show() {
    m_question.reset();
    buildDialog();
    m_dialog->show();
}

void Jsonpad::buildDialog() {
    m_dialog = std::make_unique<PadDialog>(m_document, m_schema, m_fileName);
    m_dialog->saveButton().onClick([this] { save(JsonFile::IfChanged::Refuse); });
    m_dialog->revertButton().onClick([this] { revert(); });
    m_dialog->closeButton().onClick([this] { close(); });
    m_dialog->onCloseRequest([this] { close(); });
}

void Jsonpad::save(JsonFile::IfChanged ifChanged) {
    m_question.reset();
    try {
        m_document.save(ifChanged);
        tellSaved();
    } catch (const JsonFile::ChangedOnDisk& change) {
        askWhetherToOverwrite(change.what());
    } catch (const FileError& error) {
        m_dialog->showMessage(u"error", u"Not saved", toUtf16(error.what()));
    }
}

void Jsonpad::tellSaved() {
    if (!m_document.isModified()) {
        m_dialog->showSaved();
    } else {
        m_dialog->showMessage(u"warning", u"Not everything is saved",
                              u"What is not a number is not saved; everything else is.");
    }
}

void Jsonpad::revert() {
    m_dialog->showAgain(m_document.revert());
}

void Jsonpad::close() {
    if (m_document.isModified()) {
        askWhetherToSave();
    } else {
        m_dialog.reset();
    }
}

void Jsonpad::askWhetherToSave() {
    m_question = std::make_unique<QuestionDialog>(
        u"Unsaved changes", u"Save the changes in " + m_fileName + u" before it is closed?",
        [this] { stay(); });
    m_question->addAnswer(u"Save", [this] { saveAndClose(); });
    m_question->addAnswer(u"Discard", [this] { discardAndClose(); });
    m_question->ask();
}

void Jsonpad::stay() {
    m_question.reset();
    m_dialog->stayOpen();
}

void Jsonpad::saveAndClose() {
    // First, because whatever goes wrong is told over a dialog that stays.
    stay();
    save(JsonFile::IfChanged::Refuse);
    if (!m_document.isModified()) {
        m_dialog.reset();
    }
}

void Jsonpad::discardAndClose() {
    m_question.reset();
    m_document.revert();
    m_dialog.reset();
}

void Jsonpad::askWhetherToOverwrite(const std::string& reason) {
    m_question = std::make_unique<QuestionDialog>(u"Changed by another program", toUtf16(reason),
                                                  [this] { m_question.reset(); });
    m_question->addAnswer(u"Overwrite", [this] { save(JsonFile::IfChanged::Overwrite); });
    m_question->ask();
}

}  // namespace jsonpad
