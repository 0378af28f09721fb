#include "ui/kit/table/TableViewCell.h"

#include "ui/kit/text/Font.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace kit {

namespace {

const Color DisclosureColor{ 0.5, 0.56, 0.63, 1, {} };
// Right of an accessory, and between it and the content. A glyph has its own room around it.
constexpr double ViewMargin = 12;
constexpr double ViewGap = 8;
constexpr double GlyphMargin = 4;
constexpr double TickMargin = 8; // reaches further right in its picture than the arrow
constexpr double ImageGap = 12; // between the image and the text
constexpr double ImageAir = 4; // above and below the image

// Where something of that length begins in the middle of a longer one, on a whole point. A row's height comes from sums
// and may fall short of a whole number by a hair.
double centred(double outer, double inner)
{
    return std::floor((outer - inner) / 2 + 0.01);
}

// A picture keeps its proportions. One that is too large is made smaller until it is as high as the row, but for a
// little air, and no wider than that, so that the texts keep their room.
QSizeF fittedImage(const QSizeF& size, double rowHeight)
{
    const double side = std::max(0.0, rowHeight - 2 * ImageAir);
    if (size.width() <= side && size.height() <= side)
        return size;
    return size.scaled(side, side, Qt::KeepAspectRatio).toSize();
}

double lineHeight(const Label& label)
{
    return std::ceil(QFontMetricsF(label.shownFont()).height());
}

} // namespace

TableViewCell::TableViewCell(Style style, const QString& reuseIdentifier)
    : m_style(style)
    , m_reuseIdentifier(reuseIdentifier)
    , m_contentView(new View)
    , m_textLabel(new Label)
    , m_imageView(new ImageView)
{
    addSubview(m_contentView);
    m_contentView->addSubview(m_imageView);
    m_contentView->addSubview(m_textLabel);
    m_textLabel->setAccessibilityElement(false);
    connect(m_imageView, &ImageView::imageChanged, this, &TableViewCell::setNeedsLayout);
    if (style == Style::Default)
        return;
    m_detailTextLabel = new Label;
    m_detailTextLabel->setFont(Font::systemFont(style == Style::Subtitle ? 12 : 17));
    m_detailTextLabel->setTextAlignment(style == Style::Value1 ? Qt::AlignRight : Qt::AlignLeft);
    m_detailTextLabel->setAccessibilityElement(false);
    m_contentView->addSubview(m_detailTextLabel);
}

void TableViewCell::replaceView(View*& slot, View* view)
{
    if (slot == view)
        return;
    View* const before = slot;
    slot = view;
    if (view)
        addSubview(view);
    layoutSubviews();
    Q_EMIT cellChanged();
    if (!before)
        return;
    before->removeFromSuperview();
    // Later, for it may be the very view whose action this is, and what draws it goes first.
    before->deleteLater();
}

void TableViewCell::setBackgroundView(View* view)
{
    replaceView(m_backgroundView, view);
}

void TableViewCell::setSelectedBackgroundView(View* view)
{
    replaceView(m_selectedBackgroundView, view);
}

void TableViewCell::setAccessoryView(View* view)
{
    replaceView(m_accessoryView, view);
}

void TableViewCell::setAccessoryType(AccessoryType type)
{
    if (m_accessoryType == type)
        return;
    m_accessoryType = type;
    replaceView(m_typeAccessory, makeTypeAccessory());
}

View* TableViewCell::makeTypeAccessory() const
{
    if (m_accessoryType == AccessoryType::None)
        return nullptr;
    const bool isCheckmark = m_accessoryType == AccessoryType::Checkmark;
    auto* glyph
        = new ImageView(Image::glyphNamed(isCheckmark ? QStringLiteral("checkmark") : QStringLiteral("chevron.right")));
    glyph->setTintColor(isCheckmark ? m_tintColor : DisclosureColor);
    glyph->setAccessibilityElement(false);
    if (isCheckmark)
        glyph->setAccessibilityLabel(QStringLiteral("checked"));
    return glyph;
}

void TableViewCell::setTintColor(const Color& color)
{
    m_tintColor = color;
    if (m_accessoryType == AccessoryType::Checkmark)
        static_cast<ImageView*>(m_typeAccessory)->setTintColor(color);
}

void TableViewCell::setLayoutMargins(const EdgeInsets& margins)
{
    if (m_layoutMargins == margins)
        return;
    m_layoutMargins = margins;
    layoutSubviews();
}

void TableViewCell::setSeparatorInset(const EdgeInsets& inset)
{
    if (m_separatorInset == inset)
        return;
    m_separatorInset = inset;
    Q_EMIT cellChanged();
}

void TableViewCell::prepareForReuse()
{
    m_pressed = false;
    setSelected(false, Fade::Immediately);
}

void TableViewCell::layoutSubviews()
{
    double contentWidth = width();
    if (View* accessory = shownAccessory()) {
        const QSizeF size = accessory->frame().size();
        const double left = width() - size.width() - accessoryMargin();
        accessory->setFrame({ { left, centred(height(), size.height()) }, size });
        contentWidth = left - (m_accessoryView ? ViewGap : 0);
    }
    m_contentView->setFrame({ 0, 0, std::max(0.0, contentWidth), height() });
    if (m_backgroundView)
        m_backgroundView->setFrame(bounds());
    if (m_selectedBackgroundView)
        m_selectedBackgroundView->setFrame(bounds());
    layOutContents();
}

void TableViewCell::layOutContents()
{
    double left = m_layoutMargins.left;
    if (!m_imageView->image().isNull()) {
        const QSizeF size = fittedImage(m_imageView->image().size(), height());
        m_imageView->setFrame({ { left, centred(height(), size.height()) }, size });
        left += size.width() + ImageGap;
    }
    const double textWidth = std::max(0.0, m_contentView->width() - left - m_layoutMargins.right);
    if (m_style == Style::Default)
        layOutDefault(left, textWidth);
    else if (m_style == Style::Subtitle)
        layOutSubtitle(left, textWidth);
    else
        layOutValue1(left, textWidth);
}

double TableViewCell::accessoryMargin() const
{
    if (m_accessoryView)
        return ViewMargin;
    return m_accessoryType == AccessoryType::Checkmark ? TickMargin : GlyphMargin;
}

void TableViewCell::layOutDefault(double left, double width)
{
    m_textLabel->setFrame({ left, 0, width, height() });
}

void TableViewCell::layOutSubtitle(double left, double width)
{
    const double textHeight = lineHeight(*m_textLabel);
    const double detailHeight = m_detailTextLabel->text().isEmpty() ? 0 : lineHeight(*m_detailTextLabel);
    const double gap = detailHeight > 0 ? 2 : 0;
    const double top = centred(height(), textHeight + gap + detailHeight);
    m_textLabel->setFrame({ left, top, width, textHeight });
    m_detailTextLabel->setFrame({ left, top + textHeight + gap, width, detailHeight });
}

// The detail text takes what it needs, up to three fifths of the width; the text has the rest.
void TableViewCell::layOutValue1(double left, double width)
{
    constexpr double Gap = 8;
    const double textNeeds = std::ceil(m_textLabel->naturalWidth());
    // A point more than it measures, or rounding would shrink or shorten it.
    const double detailNeeds
        = std::ceil(m_detailTextLabel->naturalWidth()) + (m_detailTextLabel->text().isEmpty() ? 0 : 1);
    const double spare = std::max(0.0, width - Gap - textNeeds);
    const double detailWidth = std::min(detailNeeds, std::max(spare, width * 0.6));
    const double textWidth = std::max(0.0, width - (detailWidth > 0 ? detailWidth + Gap : 0));
    m_textLabel->setFrame({ left, 0, textWidth, height() });
    m_detailTextLabel->setFrame({ left + width - detailWidth, 0, detailWidth, height() });
}

void TableViewCell::setIndexPath(const IndexPath& indexPath)
{
    if (m_indexPath == indexPath)
        return;
    m_indexPath = indexPath;
    Q_EMIT rowChanged();
}

void TableViewCell::setRowCount(int count)
{
    if (m_rowCount == count)
        return;
    m_rowCount = count;
    Q_EMIT rowChanged();
}

void TableViewCell::setMeetsHeader(bool meets)
{
    if (m_meetsHeader == meets)
        return;
    m_meetsHeader = meets;
    Q_EMIT rowChanged();
}

void TableViewCell::setSelected(bool selected, Fade fade)
{
    if (m_selected == selected && m_fade == fade)
        return;
    m_fade = fade;
    Q_EMIT fadesSelectionChanged();
    m_selected = selected;
    Q_EMIT selectionChanged();
}

void TableViewCell::setPressed(bool pressed)
{
    if (m_pressed == pressed)
        return;
    m_fade = Fade::Immediately;
    Q_EMIT fadesSelectionChanged();
    m_pressed = pressed;
    Q_EMIT selectionChanged();
}

} // namespace kit
