// What a form hears of keys and of the pointer, and which of several forms asks for the keys.

#include "widget_bench.h"

#include <QEvent>
#include <QWindow>

namespace tandrel::test
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

class Listening : public Form
{
public:
    explicit Listening(Text name = "listening") : Form(std::move(name), Frame::Dialog, {1500, 1500, 3000, 3000})
    {
        button.isDefault = true;
        button.Click = [this] { events.push_back("button"); };
    }
    CommandButton button{*this, "button", {150, 150, 900, 450}, "Go"};
    std::vector<std::string> events;
};

class FormInput : public WidgetBench
{
protected:
    FormInput() { form->Show(); }

    void listenForKeys()
    {
        form->KeyPress = [this](int code) { form->events.push_back(std::to_string(code)); };
    }
    /// True if the form has taken it.
    bool send(int key, const QString& text)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(windowOf(*form), &event);
        return event.isAccepted();
    }
    static QWindow* nativeWindow(const Form& of) { return windowOf(of)->windowHandle(); }
    static bool hasTheKeys(const Form& of)
    {
        return within(5000, [&] { return QGuiApplication::focusWindow() == nativeWindow(of); });
    }

    std::shared_ptr<Listening> form = std::make_shared<Listening>();
};

} // namespace

TEST_F(FormInput, KeysComeByTheCodesOfTheirCharacters)
{
    listenForKeys();
    EXPECT_TRUE(send(Qt::Key_P, QStringLiteral("p")));
    EXPECT_TRUE(send(Qt::Key_P, QStringLiteral("P")));
    EXPECT_TRUE(send(Qt::Key_Escape, QStringLiteral("\x1b")));
    EXPECT_TRUE(send(Qt::Key_Return, QStringLiteral("\r")));
    EXPECT_TRUE(send(Qt::Key_unknown, QString(QChar(0x20ac))));
    EXPECT_THAT(form->events, ElementsAre("112", "80", "27", "13", "8364")) << "the default button gets none";
}

TEST_F(FormInput, KeysWithoutACharacterComeByTheirNames)
{
    listenForKeys();
    std::vector<Key> heard;
    bool takes = true;
    form->KeyDown = [&](Key key) {
        heard.push_back(key);
        return takes;
    };
    const std::pair<int, Key> rows[] = {{Qt::Key_Left, Key::Left},     {Qt::Key_Right, Key::Right},
                                        {Qt::Key_Up, Key::Up},         {Qt::Key_Down, Key::Down},
                                        {Qt::Key_Return, Key::Enter},  {Qt::Key_Enter, Key::Enter},
                                        {Qt::Key_Escape, Key::Escape}, {Qt::Key_Space, Key::Space}};
    for (const auto& [code, key] : rows) {
        EXPECT_TRUE(send(code, QStringLiteral("x")));
        ASSERT_FALSE(heard.empty());
        EXPECT_EQ(heard.back(), key);
    }
    EXPECT_EQ(heard.size(), std::size(rows));
    EXPECT_THAT(form->events, IsEmpty()) << "what was taken goes no further";
    EXPECT_TRUE(send(Qt::Key_P, QStringLiteral("p")));
    EXPECT_EQ(heard.size(), std::size(rows)) << "a character is none of them";
    takes = false;
    EXPECT_TRUE(send(Qt::Key_Return, QStringLiteral("\r")));
    EXPECT_THAT(form->events, ElementsAre("112", "13"));
}

TEST_F(FormInput, AFormMayEndWithTheKeyThatItTakes)
{
    form->KeyDown = [this](Key) {
        unload(*form);
        return true;
    };
    EXPECT_TRUE(send(Qt::Key_Escape, QString()));
    EXPECT_TRUE(form->isDead());
}

TEST_F(FormInput, AKeyWithoutACharacterIsNotTakenByTheForm)
{
    listenForKeys();
    EXPECT_FALSE(send(Qt::Key_F5, QString()));
    EXPECT_FALSE(send(Qt::Key_Shift, QString()));
    EXPECT_THAT(form->events, IsEmpty());
}

TEST_F(FormInput, AFormThatDoesNotListenLeavesReturnToItsButton)
{
    EXPECT_TRUE(send(Qt::Key_Return, QStringLiteral("\r")));
    EXPECT_FALSE(send(Qt::Key_P, QStringLiteral("p")));
    EXPECT_THAT(form->events, ElementsAre("button"));
}

TEST_F(FormInput, AnErrorInTheHandlerOfAKeyEndsThereAndTheNextKeyComes)
{
    form->KeyPress = [this](int code) {
        form->events.push_back(std::to_string(code));
        form->events.push_back(text(Long(2000000000) + Long(code) * 10000000));
    };
    send(Qt::Key_P, QStringLiteral("p"));
    send(Qt::Key_Q, QStringLiteral("q"));
    EXPECT_THAT(form->events, ElementsAre("112", "113"));
}

TEST_F(FormInput, ThePointerThatLeavesIsToldOf)
{
    form->MouseMove = [this](const MouseEvent&) { form->events.push_back("move"); };
    form->MouseLeave = [this] { form->events.push_back("leave"); };
    mouseAt(windowOf(*form), QEvent::MouseMove, {50, 50}, Qt::NoButton);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(windowOf(*form), &leave);
    EXPECT_THAT(form->events, ElementsAre("move", "leave"));
    form->MouseLeave = nullptr;
    QApplication::sendEvent(windowOf(*form), &leave);
    EXPECT_THAT(form->events, ElementsAre("move", "leave"));
}

TEST_F(FormInput, OfSeveralFormsInARowOnlyTheLastAsksForTheKeys)
{
    const auto first = std::make_shared<Listening>("first");
    const auto last = std::make_shared<Listening>("last");
    first->Show();
    last->Show();
    form->SetFocus();
    ASSERT_TRUE(hasTheKeys(*form));

    std::vector<QWindow*> asked;
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, &qt, [&](QWindow* now) { asked.push_back(now); });
    first->SetFocus();
    last->SetFocus();
    EXPECT_THAT(asked, IsEmpty()) << "not before the present event is over";
    EXPECT_TRUE(hasTheKeys(*last));
    EXPECT_THAT(asked, ElementsAre(nativeWindow(*last)));

    first->SetFocus();
    last->SetFocus();
    first->SetFocus();
    EXPECT_TRUE(hasTheKeys(*first));
    EXPECT_THAT(asked, ElementsAre(nativeWindow(*last), nativeWindow(*first)));
    EXPECT_EQ(activeForm(), first.get());
}

} // namespace tandrel::test
