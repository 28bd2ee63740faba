// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBAttackWork.h"
#include "HBFuzz.h"
#include "HBTestFiles.h"
#include "HBTestImages.h"
#include "HBTestRecords.h"

#include <HBEditorActions.h>
#include <HBEditorApplication.h>
#include <HBEditorRecipes.h>
#include <HBEditorWindow.h>
#include <HBExportDialog.h>
#include <HBMessageBar.h>
#include <HBPhotoCheck.h>
#include <HBPhotoFiles.h>
#include <HBRecovery.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QJsonDocument>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>

#include <memory>
#include <optional>

namespace {

constexpr int JsonRoom =
    1500; // in the 1 MiB without which we begin none of Qt's JSON, which would end the process

/// The editor, and what must stay as it is in it.
class Bench {
public:
    Bench() {
        HBImage<> photo = HBTestRamp(300, 200);
        photo.AddElement(new KMEXIFElement{"Exif.Image.Make", 2, QByteArray("Maker", 6)});
        QString error;
        HBFuzzCheck(HBWritePhoto(m_Photo, photo, {}, &error), error);
        for (const char* panel : {"HBCurvesWidget", "HBColorEnhancerWidget"}) {
            const HBAdjustment& adjustment = *HBFindAdjustment(panel);
            m_Steps += HBStepOf(adjustment, HBDemonstration(adjustment));
        }
        m_Steps[1].amount = 50;
        m_Steps[1].selection.shapes = {
            HBShape::OfPixels(HBShape::Kind::Ellipse, {20, 30, 200, 100}, 5, {300, 200})};
        m_Window.show();
        Reopen();
    }

    HBEditorWindow& Window() { return m_Window; }
    QString Path(const QString& name) { return m_Folder(name); }
    const QVector<HBRecipeStep>& Steps() const { return m_Steps; }
    QString Unsaved() const { return m_Unsaved.path(); }
    int Files() const { return m_Folder.Files().size(); }

    /// The photo and its steps, all saved.
    void Reopen() {
        HBFuzzCheck(m_Window.Open(m_Photo), "The editor does not open: " + Said());
        HBFuzzCheck(m_Window.Recipes()->Apply("Steps", {m_Steps}), "The editor does not apply: " + Said());
        const_cast<HBDocument&>(m_Window.Document()).SetSaved(m_Photo);
        m_Original = m_Window.Document().Original();
        m_Image = m_Window.Document().Image();
    }
    void CheckPhoto() const {
        const HBDocument& document = m_Window.Document();
        HBFuzzCheck(document.AllSteps() == m_Steps && document.Original().IsSameAs(m_Original) &&
                        document.Image().IsSameAs(m_Image) && document.Result().IsUpToDate(),
                    "The editor has lost the photo or its steps");
    }
    QString Said() const { return m_Window.MessageBar()->Text(); }
    void Hush() { m_Window.MessageBar()->hide(); }
    /// The end of an attempt: what was said, if that is an error.
    QString ErrorUnless(bool done) const {
        HBEndFailing();
        HBFuzzCheck(done || !Said().isEmpty(), "The editor fails without a word");
        return Said(); // of what was done, too: a kind of metadata could not be stored
    }

private:
    const HBTestFolder m_Folder, m_Unsaved;
    const QString m_Photo = m_Folder("photo.png");
    HBEditorWindow m_Window{false};
    QVector<HBRecipeStep> m_Steps;
    HBImage<> m_Original, m_Image;
};

/// Says yes to the export and to its question, as they come.
class Yes : public QObject {
public:
    explicit Yes(const QString& path) : m_Path(path) { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* dialog = event->type() == QEvent::Show ? qobject_cast<QDialog*>(watched) : nullptr;
        if (dialog && dialog->isModal()) QTimer::singleShot(0, dialog, [this, dialog] { Answer(dialog); });
        return false;
    }

private:
    void Answer(QDialog* dialog) {
        if (auto* question = qobject_cast<QMessageBox*>(dialog)) question->button(QMessageBox::Yes)->click();
        if (!qobject_cast<HBExportDialog*>(dialog)) return;
        dialog->findChild<QLineEdit*>("path")->setText(m_Path);
        dialog->accept();
        HBFuzzCheck(!dialog->isVisible(), "The export does not take " + m_Path);
    }

    const QString m_Path;
};

HBAttackResult Save(Bench* bench, const QString& name, HBSavedFile* file, bool isExport) {
    const QString path = bench->Path(name);
    HBDocument& document = const_cast<HBDocument&>(bench->Window().Document());
    int others = 0;
    {
        const HBCalm calm;
        file->Restore(path);
        others = bench->Files() - 1;
        bench->Hush();
    }
    const QString before = document.Path();
    bool done = false;
    if (isExport) {
        const Yes yes(path);
        bench->Window().Actions()->exportCopy->trigger();
        HBEndFailing();
        done = HBBytesOf(path) != file->before;
        HBFuzzCheck(document.Path() == before, "An export has become the document");
    } else {
        done = bench->Window().Files()->SaveTo(path);
    }
    const QString told = bench->ErrorUnless(done);
    file->Check(path, done, others);
    bench->CheckPhoto();
    HBFuzzCheck(isExport || document.Path() == (done ? path : before), "The document has the wrong file");
    QFile::remove(path);
    document.SetSaved(before);
    return {QImage::fromData(file->after), told};
}

HBAttackResult Open(Bench* bench, const QString& other, const QImage& right) {
    bench->Hush();
    const bool done = bench->Window().Open(other);
    const QString told = bench->ErrorUnless(done);
    if (!done) {
        bench->CheckPhoto();
        return {{}, told};
    }
    const QImage opened = bench->Window().Document().Image().ToQImage();
    HBFuzzCheck(opened == right, "Another photo is open than was asked for");
    bench->Reopen();
    return {opened, told};
}

HBAttackResult Apply(Bench* bench) {
    bench->Hush();
    HBDocument& document = const_cast<HBDocument&>(bench->Window().Document());
    const bool done = bench->Window().Recipes()->Apply("Once more", {bench->Steps()});
    const QString told = bench->ErrorUnless(done);
    const QImage applied = document.Image().ToQImage();
    if (done) document.History().undo();
    HBFuzzCheck(HBComesTrue([&] { return document.Result().IsUpToDate(); }), "Undo does not come to rest");
    bench->CheckPhoto();
    return {applied, told};
}

/// Does something in an event of its own, as the user's hand does.
struct Hand : QObject {
    std::function<void()> act;
    bool event(QEvent*) override {
        act();
        return true;
    }
};

/// A document whose unsaved steps are kept, and what is done to it. Without its window: Qt's own texts and lists
/// end the process where they find no memory.
HBAttackResult Change(const QString& folder, const QVector<HBRecipeStep>& steps, const HBPhoto& photo,
                      const std::function<void(HBDocument*)>& change) {
    std::optional<HBCalm> calm(std::in_place);
    QString error;
    Hand hand;
    HBDocument document;
    const QMetaObject::Connection outOfMemory =
        QObject::connect(static_cast<HBEditorApplication*>(qApp), &HBEditorApplication::OutOfMemory, [&] {
            const HBCalm telling;
            error = "not enough memory";
        });
    const auto isAtRest = [&] { return document.Result().IsUpToDate() || !document.Result().Trouble().isEmpty(); };
    document.SetPhoto("photo.png", photo);
    document.SetSteps(steps, "Steps");
    HBFuzzCheck(HBComesTrue([&] { return document.Result().IsUpToDate(); }), "A document does not come to rest");
    HBRecovery recovery(folder, &document);
    const auto fails = [&](const QString& reason) {
        const HBCalm telling;
        error = reason.isEmpty() ? "without a reason" : reason;
    };
    QObject::connect(&document, &HBDocument::Failed, fails);
    QObject::connect(&recovery, &HBRecovery::Failed, fails);
    hand.act = [&] { change(&document); };
    QEvent event(QEvent::User);
    calm.reset();
    QCoreApplication::sendEvent(&hand, &event);
    HBEndFailing();
    QObject::disconnect(outOfMemory);
    HBFuzzCheck(HBComesTrue(isAtRest), "A document does not come to rest");
    HBFuzzCheck(document.Original().IsSameAs(photo.image) && document.StepCount() >= steps.size() - 1,
                "A document has lost its photo or its steps");
    if (!document.Result().IsUpToDate()) { // as a save does
        QString problem;
        const QVector<HBRecipeStep> present = document.AllSteps();
        HBFuzzCheck(!document.Result().Trouble().isEmpty(), "Steps have no result, without a reason");
        document.Result().Know(present, HBApplyRecipe(photo.image, document.Recipe(), &problem));
    }
    QString problem;
    const QImage image = document.Image().ToQImage();
    HBFuzzCheck(image == HBApplyRecipe(photo.image, document.Recipe(), &problem).ToQImage(),
                "A document shows other steps than its own");
    HBFuzzCheck(recovery.Keep(), "Unsaved steps are not kept, with memory again");
    const QJsonObject kept =
        QJsonDocument::fromJson(HBBytesOf(QDir(folder).filePath(QDir(folder).entryList({"*.json"}).value(0))))
            .object();
    HBFuzzCheck(kept["recipe"].toObject() ==
                    QJsonDocument::fromJson(HBRecipe{document.AllSteps()}.ToJson()).object(),
                "Other steps are kept than the document's");
    return {image, error};
}

HBAttackResult SaveRecipe(const QString& path, const HBRecipe& recipe, HBSavedFile* file) {
    QString error;
    HBRecipe again;
    file->Restore(path);
    const bool isSaved = recipe.Save(path, &error);
    file->Check(path, isSaved);
    const bool isRead = isSaved && HBRecipe::Load(path, &again, &error);
    HBEndFailing();
    HBFuzzCheck(isRead == error.isEmpty(), "A recipe fails without a word");
    HBFuzzCheck(again.steps == (isRead ? recipe.steps : QVector<HBRecipeStep>()), "A recipe is read as another");
    QFile::remove(path);
    return {{}, error};
}

} // namespace

void HBSavedFile::Restore(const QString& path) const {
    const HBCalm calm;
    HBFuzzWrite(path, before);
}

void HBSavedFile::Check(const QString& path, bool done, int others) {
    const HBCalm calm;
    const QByteArray bytes = HBBytesOf(path);
    if (after.isEmpty()) after = bytes;
    const bool isNew = bytes != before;
    HBFuzzCheck(isNew || !done, path + " counts as saved and is not");
    // Without memory its metadata may be less.
    const QImage image = QImage::fromData(bytes);
    HBFuzzCheck(!isNew || bytes == after ||
                    (HBIsWholeFile(bytes) && !image.isNull() && image == QImage::fromData(after)),
                path + " is neither as it was nor as it is to be");
    const QDir folder = QFileInfo(path).dir();
    const QStringList all = folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    HBFuzzCheck(all.size() == others + 1, "something lies beside " + path + ": " + all.join(' '));
}

QVector<HBAttackWork> HBEditorWorks() {
    const auto bench = std::make_shared<Bench>();
    QVector<HBAttackWork> works;
    const auto add = [&](const QString& name, const std::function<HBAttackResult()>& run) {
        works.append({"editor " + name, HBFailing::OutsideMainThread, run});
    };
    const QString other = bench->Path("other.png");
    const QImage otherImage = HBTestRamp(130, 90).ToQImage();
    otherImage.save(other);
    add("open", [=] { return Open(bench.get(), other, HBImage<>::FromQImage(otherImage).ToQImage()); });
    HBPhoto photo;
    photo.image = HBTestRamp(300, 200);
    const QVector<HBRecipeStep> steps = bench->Steps();
    const std::pair<const char*, std::function<void(HBDocument*)>> changes[] = {
        {"append", [steps](HBDocument* document) { document->Append({steps[0]}, "Once more"); }},
        {"amount", [](HBDocument* document) { document->SetAmount(0, 20); }},
        {"remove", [](HBDocument* document) { document->Remove(1); }},
        {"undo", [](HBDocument* document) {
             document->SetOn(0, false);
             document->History().undo();
         }}};
    for (const auto& change : changes) {
        works.append({QString("editor steps ") + change.first, HBFailing::Everywhere,
                      [=, act = change.second] { return Change(bench->Unsaved(), steps, photo, act); }, true,
                      JsonRoom});
    }
    const auto kept = std::make_shared<HBSavedFile>(HBSavedFile{"what was there", {}});
    const QString recipeFile = QDir(bench->Unsaved()).filePath("recipe.json");
    works.append({"editor recipe file", HBFailing::Everywhere,
                  [=] { return static_cast<void>(bench), SaveRecipe(recipeFile, {steps}, kept.get()); }, true,
                  JsonRoom});
    add("recipe", [=] { return Apply(bench.get()); });
    for (const char* name : {"saved.png", "saved.jpg", "saved.webp"}) {
        for (const bool isExport : {false, true}) {
            const auto file = std::make_shared<HBSavedFile>(HBSavedFile{"what was there", {}});
            add(QString(isExport ? "export " : "save ") + name,
                [=] { return Save(bench.get(), name, file.get(), isExport); });
        }
    }
    return works;
}
