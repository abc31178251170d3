#include "ui/WelcomeScreen.h"

#include "core/AppIdentity.h"
#include "ui/UiStyle.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace {

QLabel *centredLabel(const QString &text, int role, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    applyFontRole(label, role);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    return label;
}

} // namespace

WelcomeScreen::WelcomeScreen(QWidget *parent)
    : QWidget(parent)
{
    setupUi();
    applyColors();
}

void WelcomeScreen::setupUi()
{
    // A large font scale on a small window must still reach the buttons at the bottom.
    auto *scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    auto *outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(scroll);

    auto *page = new QWidget(scroll);
    page->setAutoFillBackground(false);
    scroll->setWidget(page);
    auto *pageLayout = new QHBoxLayout(page);
    pageLayout->setContentsMargins(40, 40, 40, 40);

    auto *column = new QWidget(page);
    column->setMaximumWidth(560);
    // The stretches beside the column only take what is left once it has reached its maximum width.
    pageLayout->addStretch(1);
    pageLayout->addWidget(column, 1000);
    pageLayout->addStretch(1);

    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addStretch();

    auto *icon = new QLabel(column);
    icon->setPixmap(QPixmap(QString::fromLatin1(AppIdentity::kWindowIcon))
                        .scaled(80, 80, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    icon->setAlignment(Qt::AlignCenter);
    layout->addWidget(icon);

    layout->addSpacing(20);
    layout->addWidget(
        centredLabel(tr("Welcome to\n%1").arg(QString::fromLatin1(AppIdentity::kDisplayName)), 5, column));
    layout->addSpacing(8);
    m_tagline = centredLabel(tr("A digital ombrel register."), 3, column);
    layout->addWidget(m_tagline);
    layout->addSpacing(24);

    m_card = buildHowItWorksCard();
    layout->addWidget(m_card);

    layout->addSpacing(16);
    auto *offline = centredLabel(tr("Works fully offline. Your data stays on this device."), 2, column);
    offline->setStyleSheet(QStringLiteral("color: #6E8A7E;"));
    layout->addWidget(offline);
    layout->addSpacing(24);

    auto *create = new QPushButton(tr("Create Your First Account"), column);
    create->setObjectName(QStringLiteral("createAccountButton"));
    applyPrimaryButtonStyle(create);
    create->setMinimumHeight(40);
    layout->addWidget(create);

    layout->addSpacing(20);
    auto *learnMore = new QPushButton(tr("Learn about sync and sharing"), column);
    learnMore->setObjectName(QStringLiteral("learnMoreButton"));
    applyLinkButtonStyle(learnMore, QColor(0x4DB6AC));
    layout->addWidget(learnMore, 0, Qt::AlignHCenter);
    layout->addSpacing(4);
    auto *signIn = new QPushButton(tr("Already have an account? Sign In"), column);
    signIn->setObjectName(QStringLiteral("signInButton"));
    applyLinkButtonStyle(signIn);
    layout->addWidget(signIn, 0, Qt::AlignHCenter);
    layout->addStretch();

    connect(create, &QPushButton::clicked, this, &WelcomeScreen::createAccountRequested);
    connect(learnMore, &QPushButton::clicked, this, &WelcomeScreen::learnMoreRequested);
    connect(signIn, &QPushButton::clicked, this, &WelcomeScreen::signInRequested);
}

QFrame *WelcomeScreen::buildHowItWorksCard()
{
    auto *card = new QFrame;
    card->setObjectName(QStringLiteral("HowItWorksCard"));
    auto *layout = new QVBoxLayout(card);
    layout->setContentsMargins(20, 16, 20, 16);
    layout->setSpacing(10);

    auto *heading = new QLabel(tr("How it works"), card);
    applyFontRole(heading, 3);
    layout->addWidget(heading);

    const QString steps[] = {
        tr("Add an account (checking, savings, credit card, or any account you'd like to track)."),
        tr("Record transactions as you spend."),
        tr("Reconcile when your statement arrives."),
    };
    int number = 0;
    for (const QString &step : steps) {
        auto *row = new QHBoxLayout;
        row->setSpacing(8);
        auto *numberLabel = new QLabel(QString::number(++number), card);
        numberLabel->setFixedWidth(20);
        applyFontRole(numberLabel, 1);
        numberLabel->setStyleSheet(QStringLiteral("color: #4DB6AC;"));
        numberLabel->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        auto *text = new QLabel(step, card);
        applyFontRole(text, 0);
        text->setWordWrap(true);
        row->addWidget(numberLabel);
        row->addWidget(text, 1);
        layout->addLayout(row);
    }
    return card;
}

void WelcomeScreen::applyColors()
{
    const bool dark = isDarkPalette();
    m_tagline->setStyleSheet(QStringLiteral("color: %1;").arg(dark ? "#8FAF9F" : "#4A6358"));
    m_card->setStyleSheet(QStringLiteral("#HowItWorksCard { border: 1px solid %1; border-radius: 10px; }")
                              .arg(dark ? "#2A4038" : "#D8E0DB"));
}

void WelcomeScreen::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        applyColors();
}
