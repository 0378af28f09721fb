#pragma once

#include "catalog/records/VeskPackage.h"
#include "ui/kit/table/TableViewCell.h"

// A row that shows one package: its name above its author and version, its icon, and a badge when it is installed or
// has an update.
class ClassicPackageCell : public kit::TableViewCell
{
    Q_OBJECT

public:
    // Always in the subtitle style, whatever the style asked for.
    ClassicPackageCell(Style style, const QString& reuseIdentifier);

    // What it shows for the package's name: the identifier where it has none.
    static QString nameOf(const VeskPackage& package);
    void configureWithPackage(const VeskPackage& package, int variant);
    // The icon URL of the package last configured, null after the cell was prepared for reuse.
    const QString& representedIconURL() const { return m_representedIconURL; }
    void setRepresentedIconURL(const QString& urlString) { m_representedIconURL = urlString; }

    void prepareForReuse() override;

protected:
    void layOutContents() override;

private:
    void showBadge(const VeskPackage& package);

    QString m_representedIconURL;
};
