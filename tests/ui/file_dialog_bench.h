/// The toolkit's own dialog for files, and the hand of a user on its controls while it is up.
#pragma once

#include "temporary_folder.h"
#include "widget_bench.h"

#include "toolkit/qt/file_list_view.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest/qtestkeyboard.h>
#include <QtTest/qtestmouse.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace tandrel::test
{

inline QDialog* upDialog()
{
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    return dialog && dialog->objectName() == QStringLiteral("fileDialog") ? dialog : nullptr;
}

template <class Widget>
Widget* part(const char* name)
{
    return upDialog()->findChild<Widget*>(QString::fromLatin1(name));
}

inline FileListView* list() { return upDialog()->findChild<FileListView*>(QStringLiteral("fileList")); }
inline QLineEdit* nameField() { return part<QLineEdit>("fileName"); }
inline std::string hintText() { return part<QLabel>("fileHint")->text().toStdString(); }
inline std::string lookedIn() { return part<QComboBox>("lookIn")->currentText().toStdString(); }
inline void clickAccept() { part<QPushButton>("accept")->click(); }
inline void clickReject() { part<QPushButton>("reject")->click(); }

inline std::vector<std::string> shownNames()
{
    std::vector<std::string> names;
    const QAbstractItemModel& rows = *list()->model();
    for (int row = 0; row < rows.rowCount(); ++row)
        names.push_back(rows.index(row, 0).data().toString().toStdString());
    return names;
}

inline QModelIndex rowOf(const std::string& shown)
{
    const auto names = shownNames();
    const auto found = std::find(names.begin(), names.end(), shown);
    return found == names.end() ? QModelIndex() : list()->model()->index(static_cast<int>(found - names.begin()), 0);
}

inline QPoint placeOf(const std::string& shown)
{
    const QModelIndex index = rowOf(shown);
    EXPECT_TRUE(index.isValid()) << shown;
    list()->scrollTo(index);
    return list()->visualRect(index).center();
}

inline void clickOn(const std::string& shown, Qt::KeyboardModifiers held = Qt::NoModifier)
{
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, held, placeOf(shown));
}

inline void doubleClickOn(const std::string& shown)
{
    clickOn(shown);
    const QPoint at = placeOf(shown);
    QTest::mouseDClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    QTest::mouseRelease(list()->viewport(), Qt::LeftButton, Qt::NoModifier, at);
}

inline void typeName(const std::string& text)
{
    nameField()->setFocus();
    nameField()->selectAll();
    QTest::keyClicks(nameField(), QString::fromStdString(text));
}

inline void pressEnter() { QTest::keyClick(nameField(), Qt::Key_Return); }

inline constexpr int kPatienceMs = 15000;

class FileDialogs : public WidgetBench
{
protected:
    FileDialogs()
    {
        what.title = "Open Multiple Video...";
        what.folder = folder.path() + "/";
        what.several = true;
        what.filters = {{"Films", {"*.avi", "*.mp4"}}, {"All Files", {"*"}}};
        for (const char* name : {"a.avi", "B.MP4", "c.mp4", "notes.txt", "below/deep.avi"})
            make(name);
    }

    std::string make(const std::string& name)
    {
        const std::filesystem::path path = folder.path() + "/" + name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path) << "film";
        return path.string();
    }
    std::string in(const std::string& name) const { return folder.path() + "/" + name; }

    /// What the dialog gives while the user takes these steps, each as soon as the list shows what it says it shows.
    struct Step {
        std::string waitFor;
        std::function<void()> act;
    };
    std::vector<Text> choose(std::vector<Step> steps)
    {
        std::size_t next = 0;
        const Meanwhile user([&] {
            if (!upDialog() || (!steps[next].waitFor.empty() && !rowOf(steps[next].waitFor).isValid()))
                return false;
            steps[next++].act();
            return next == steps.size();
        });
        QTimer::singleShot(kPatienceMs, &qt, [&] {
            if (!upDialog())
                return;
            ADD_FAILURE() << "step " << next << " waits for " << (next < steps.size() ? steps[next].waitFor : "an end");
            upDialog()->reject();
        });
        auto chosen = qt.chooseFiles(what);
        EXPECT_TRUE(user.isDone()) << "the dialog went before step " << next;
        return chosen;
    }

    TemporaryFolder folder;
    FileDialog what;
};

} // namespace tandrel::test
