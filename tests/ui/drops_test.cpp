// What is dropped on a window.

#include "widget_bench.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class Target : public Form
{
public:
    Target() : Form("target", Frame::Video, {0, 0, 3000, 3000})
    {
        DropFiles = [this](const std::vector<Text>& paths) { dropped.push_back(paths); };
    }
    std::vector<std::vector<Text>> dropped;
};

class Drops : public WidgetBench
{
protected:
    Drops() { form->Show(); }
    bool isAccepted(const QMimeData& data)
    {
        QDragEnterEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        event.ignore();
        QApplication::sendEvent(windowOf(*form), &event);
        return event.isAccepted();
    }
    void drop(const QMimeData& data)
    {
        QDropEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(windowOf(*form), &event);
    }

    std::shared_ptr<Target> form = newForm<Target>();
};

} // namespace

TEST_F(Drops, FilesComeAsPathsOnceTheDropIsOver)
{
    QMimeData data;
    data.setUrls({QUrl::fromEncoded("file:///films/a%20b.avi"), QUrl::fromEncoded("https://example.org/c.avi"),
                  QUrl::fromEncoded("file:///films/%22d%7Ce%FF.avi")});
    EXPECT_TRUE(isAccepted(data));
    drop(data);
    EXPECT_THAT(form->dropped, IsEmpty()) << "whoever they come from waits for the end of the drop";
    ASSERT_TRUE(within(2000, [&] { return !form->dropped.empty(); }));
    EXPECT_THAT(form->dropped, ElementsAre(ElementsAre("/films/a b.avi", "/films/\xEF\x80\xA2"
                                                                         "d\xEF\x81\xBC"
                                                                         "e\xFF.avi")));
}

TEST_F(Drops, TextAndAddressesAreRefused)
{
    QMimeData text;
    text.setText(QStringLiteral("/films/a.avi"));
    EXPECT_FALSE(isAccepted(text));
    drop(text);
    QMimeData address;
    address.setUrls({QUrl(QStringLiteral("https://example.org/c.avi"))});
    EXPECT_FALSE(isAccepted(address));
    drop(address);
    QMimeData file;
    file.setUrls({QUrl(QStringLiteral("file:///films/a.avi"))});
    EXPECT_TRUE(isAccepted(file));
    drop(file);
    ASSERT_TRUE(within(2000, [&] { return !form->dropped.empty(); }));
    EXPECT_THAT(form->dropped, ElementsAre(ElementsAre("/films/a.avi"))) << "and nothing of those before";
}

TEST_F(Drops, WhoeverProposesAMoveIsToldThatItWasACopy)
{
    QMimeData data;
    data.setUrls({QUrl(QStringLiteral("file:///films/a.avi"))});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::ShiftModifier);
    ASSERT_EQ(enter.dropAction(), Qt::MoveAction);
    QApplication::sendEvent(windowOf(*form), &enter);
    EXPECT_TRUE(enter.isAccepted());
    EXPECT_EQ(enter.dropAction(), Qt::CopyAction);
    QDropEvent end({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::ShiftModifier);
    ASSERT_EQ(end.dropAction(), Qt::MoveAction);
    QApplication::sendEvent(windowOf(*form), &end);
    EXPECT_TRUE(end.isAccepted());
    EXPECT_EQ(end.dropAction(), Qt::CopyAction) << "a source whose files had moved would remove them";
}

TEST_F(Drops, FilesOfAnotherComputerAreRefused)
{
    const QUrl other(QStringLiteral("file://server/films/a.avi"));
    const QUrl own(QStringLiteral("file://localhost/films/a.avi"));
    QMimeData refused;
    refused.setUrls({other});
    EXPECT_FALSE(isAccepted(refused));
    drop(refused);
    QMimeData both;
    both.setUrls({other, own});
    EXPECT_TRUE(isAccepted(both));
    drop(both);
    ASSERT_TRUE(within(2000, [&] { return !form->dropped.empty(); }));
    EXPECT_THAT(form->dropped, ElementsAre(ElementsAre("/films/a.avi")));
}

TEST_F(Drops, AFormThatEndsMeanwhileHearsNothing)
{
    QMimeData data;
    data.setUrls({QUrl(QStringLiteral("file:///films/a.avi"))});
    EXPECT_TRUE(isAccepted(data));
    drop(data);
    unload(*form);
    int turns = 0;
    qt.later(0, [&] { ++turns; });
    ASSERT_TRUE(within(2000, [&] { return turns > 0; }));
    EXPECT_THAT(form->dropped, IsEmpty());
}

} // namespace tandrel::test
