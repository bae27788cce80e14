// SPDX-License-Identifier: GPL-3.0-or-later
// SPDX-FileCopyrightText: 2026 The Mensura developers
//
// The About window.
#include "about/frmAbout.h"

#include "catalogue/StringTable.h"
#include "help/Links.h"
#include "shell/Dialogs.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QTextCursor>
#include <QTextEdit>
#include <QVBoxLayout>

namespace
{
constexpr int ProductNameId = 9; // "Mensura 98"
constexpr int NoticeId = 89; // "(Mensura - unit conversions following ...)"
constexpr int HomePageId = 19; // the home page's address
constexpr int EasterId = 265; // "Congratulations! You've found the Mensura easter egg!"
constexpr int DedicationId = 374;
constexpr int QuotationId = 375;
constexpr int CaptionId = 5400;
constexpr int OkId = 5401;
constexpr int VersionId = 5402; // "Version %1"
constexpr int CopyrightId = 5403;
constexpr int IssuesId = 5404; // the issue tracker, where questions and problems reach us
// The credits: heading, underline, paragraphs, closing line, signature, date, flag.
constexpr int CreditsHeadingId = 5410;
constexpr int CreditsUnderlineId = 5411;
constexpr int CreditsFirstParagraphId = 5412;
constexpr int CreditsLastParagraphId = 5418; // "Thanks to all!"
constexpr int CreditsSignatureId = 5419;
constexpr int CreditsDateId = 5420;
constexpr int CreditsFlagId = 5421;
constexpr int HomePageCaptionId = 5422;
constexpr int IssuesCaptionId = 5423;
constexpr int Image1NameId = 5424;
constexpr int Image2NameId = 5425;
constexpr int PictureNameId = 5426;
constexpr int PictureTipId = 5427;
constexpr int CreditsNameId = 5428;

constexpr int IconSize = 64;

QString linkText(const QString &target)
{
    return QStringLiteral("<a href=\"%1\">%1</a>").arg(target.toHtmlEscaped());
}

// The desktop's fixed-pitch font, or, where the font database does not count that one as fixed
// pitch (Noto Sans Mono has a few wide glyphs, so fontconfig calls it proportional), the first
// family with Latin letters that it does count, at the same size.
QFont fixedPitchFont()
{
    const QFont system = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (QFontInfo(system).fixedPitch())
        return system;
    for (const QString &family : QFontDatabase::families(QFontDatabase::Latin)) {
        if (!QFontDatabase::isFixedPitch(family))
            continue;
        QFont font = system;
        font.setFamilies({ family });
        const QFontInfo info(font);
        if (info.fixedPitch() && info.family() == family)
            return font;
    }
    return system;
}

QLabel *label(QWidget *parent, const char *name)
{
    auto *label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    return label;
}
} // namespace

frmAbout::frmAbout(Dialogs &dialogs, QWidget *parent)
    : QDialog(parent)
    , m_dialogs(dialogs)
{
    setObjectName(QStringLiteral("frmAbout"));
    createControls();
    setTexts();
    connectControls();
}

void frmAbout::createControls()
{
    Image1 = label(this, "Image1");
    Image1->setPixmap(QIcon(QStringLiteral(":/about/largeicon.png")).pixmap(IconSize));
    Image2 = label(this, "Image2");
    Image2->setPixmap(QIcon(QStringLiteral(":/about/oldicon.png")).pixmap(IconSize));
    for (QLabel *image : { Image1, Image2 }) {
        image->setFixedSize(IconSize, IconSize);
        image->installEventFilter(this);
    }

    Frame1 = new QFrame(this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    lblProductName = label(Frame1, "lblProductName");
    QFont nameFont = lblProductName->font();
    nameFont.setPointSizeF(nameFont.pointSizeF() * 1.6);
    nameFont.setBold(true);
    lblProductName->setFont(nameFont);
    lblVersion = label(Frame1, "lblVersion");
    lblVersion->installEventFilter(this);
    lblCopyright = label(Frame1, "lblCopyright");
    lblNotice = label(Frame1, "lblNotice");
    lblNotice->setWordWrap(true);
    lblHomePageCaption = label(Frame1, "lblHomePageCaption");
    lblHomePage = label(Frame1, "lblHomePage");
    lblemailCaption = label(Frame1, "lblemailCaption");
    lblemail = label(Frame1, "lblemail");
    for (QLabel *link : { lblHomePage, lblemail }) {
        link->setTextFormat(Qt::RichText);
        link->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
        link->setCursor(Qt::PointingHandCursor);
    }
    lblHomePageCaption->setBuddy(lblHomePage);
    lblemailCaption->setBuddy(lblemail);

    auto *links = new QGridLayout;
    links->setContentsMargins(0, 12, 0, 0);
    links->addWidget(lblHomePageCaption, 0, 0);
    links->addWidget(lblHomePage, 0, 1);
    links->addWidget(lblemailCaption, 1, 0);
    links->addWidget(lblemail, 1, 1);
    links->setColumnStretch(1, 1);

    auto *frameLayout = new QVBoxLayout(Frame1);
    frameLayout->setContentsMargins(0, 0, 0, 0);
    frameLayout->addWidget(lblProductName);
    frameLayout->addWidget(lblVersion);
    frameLayout->addWidget(lblCopyright);
    frameLayout->addSpacing(8);
    frameLayout->addWidget(lblNotice);
    frameLayout->addLayout(links);
    frameLayout->addStretch();

    txtCredits = new QTextEdit(this);
    txtCredits->setObjectName(QStringLiteral("txtCredits"));
    txtCredits->setReadOnly(true);
    txtCredits->setVisible(false);

    Picture1 = label(this, "Picture1");
    Picture1->setAlignment(Qt::AlignCenter);
    Picture1->setCursor(Qt::PointingHandCursor);
    Picture1->installEventFilter(this);
    Picture1->setVisible(false);
    Label4 = label(this, "Label4");
    Label4->setTextFormat(Qt::PlainText);
    Label4->setWordWrap(true);
    Label4->setAlignment(Qt::AlignCenter);
    Label4->setVisible(false);

    cmdOK = new QPushButton(this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);

    auto *icons = new QVBoxLayout;
    icons->addWidget(Image1);
    icons->addWidget(Image2);
    icons->addStretch();

    auto *content = new QVBoxLayout;
    content->addWidget(Frame1, 1);
    content->addWidget(txtCredits, 1);
    content->addWidget(Picture1);
    content->addWidget(Label4);

    auto *body = new QHBoxLayout;
    body->setSpacing(16);
    body->addLayout(icons);
    body->addLayout(content, 1);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(body, 1);
    layout->addLayout(buttons);

    // One size for all three faces, so that the window does not jump when they change.
    setFixedSize(540, 400);
}

void frmAbout::setTexts()
{
    setWindowTitle(StringTable::text(CaptionId));
    lblProductName->setText(StringTable::text(ProductNameId));
    lblVersion->setText(StringTable::text(VersionId).arg(QStringLiteral(MENSURA_VERSION)));
    lblCopyright->setText(StringTable::text(CopyrightId));
    lblNotice->setText(StringTable::text(NoticeId));
    lblHomePageCaption->setText(StringTable::text(HomePageCaptionId));
    lblHomePage->setText(linkText(StringTable::text(HomePageId)));
    lblemailCaption->setText(StringTable::text(IssuesCaptionId));
    lblemail->setText(linkText(StringTable::text(IssuesId)));
    Image1->setAccessibleName(StringTable::text(Image1NameId));
    Image2->setAccessibleName(StringTable::text(Image2NameId));
    Picture1->setAccessibleName(StringTable::text(PictureNameId));
    Picture1->setToolTip(StringTable::text(PictureTipId));
    txtCredits->setAccessibleName(StringTable::text(CreditsNameId));
    cmdOK->setText(StringTable::text(OkId));
}

void frmAbout::connectControls()
{
    connect(cmdOK, &QPushButton::clicked, this, &frmAbout::cmdOK_Click);
    // The links open the string table's own targets, whatever the label shows.
    connect(lblHomePage, &QLabel::linkActivated, this,
        [] { Links::open(StringTable::text(HomePageId)); });
    connect(
        lblemail, &QLabel::linkActivated, this, [] { Links::open(StringTable::text(IssuesId)); });
}

bool frmAbout::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (watched == Image1 || watched == Image2) {
            Image_MouseDown(watched, mouse->button(), mouse->modifiers());
            return true;
        }
        if (watched == Picture1 && mouse->button() == Qt::LeftButton) {
            Picture1_Click();
            return true;
        }
    } else if (event->type() == QEvent::MouseButtonDblClick && watched == lblVersion) {
        ShowEasterMessage();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmAbout::Image_MouseDown(
    QObject *image, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    if (button != Qt::LeftButton)
        return;
    const Qt::KeyboardModifiers all = Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier;
    if (image == Image2 && (modifiers & all) == all)
        ShowDedication();
    else
        ToggleCredits();
}

void frmAbout::ToggleCredits()
{
    // From the dedication too: the credits take its place.
    Picture1->setVisible(false);
    Label4->setVisible(false);
    if (txtCredits->isHidden()) {
        FillCredits();
        txtCredits->setVisible(true);
        Frame1->setVisible(false);
    } else {
        txtCredits->setVisible(false);
        Frame1->setVisible(true);
    }
}

void frmAbout::FillCredits()
{
    if (m_creditsFilled)
        return;
    m_creditsFilled = true;
    const QString newLine = QStringLiteral("\n");
    QString text = StringTable::text(CreditsHeadingId) + newLine
        + StringTable::text(CreditsUnderlineId) + newLine + newLine;
    for (int id = CreditsFirstParagraphId; id <= CreditsLastParagraphId; ++id)
        text += StringTable::text(id) + newLine + newLine;
    text += StringTable::text(CreditsSignatureId) + newLine + StringTable::text(CreditsDateId)
        + newLine + newLine;

    txtCredits->clear();
    QTextCursor cursor(txtCredits->document());
    cursor.insertText(text);
    // The flag is drawn in text characters: it needs a fixed-pitch font to stay square.
    QTextCharFormat fixed;
    fixed.setFont(fixedPitchFont());
    cursor.insertText(StringTable::text(CreditsFlagId), fixed);
    txtCredits->moveCursor(QTextCursor::Start);
}

void frmAbout::ShowDedication()
{
    Picture1->setPixmap(QIcon(QStringLiteral(":/about/dedicatepic.png")).pixmap(QSize(320, 240)));
    QFont font(QStringLiteral("Arial"));
    // Where Arial is not installed, the font matcher picks the system's sans-serif face.
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(Label4->font().pointSizeF() * 1.15);
    Label4->setFont(font);
    Label4->setText(
        StringTable::text(DedicationId) + QStringLiteral("\n\n") + StringTable::text(QuotationId));
    Label4->setVisible(true);
    Picture1->setVisible(true);
    Frame1->setVisible(false);
    txtCredits->setVisible(false);
}

void frmAbout::Picture1_Click()
{
    Picture1->setVisible(false);
    Label4->setVisible(false);
    Frame1->setVisible(true);
}

void frmAbout::ShowEasterMessage()
{
    Notice notice;
    notice.icon = Notice::Information;
    notice.text = StringTable::text(EasterId);
    m_dialogs.message(this, notice);
}

void frmAbout::cmdOK_Click()
{
    accept();
}
