#include "catalog/records/VeskRepository.h"

namespace {

// The rule for file paths: slashes at the end do not count, and a text of nothing else is the root.
QString lastPathComponent(QStringView text)
{
    while (text.size() > 1 && text.endsWith(u'/'))
        text.chop(1);
    return text == u"/" ? text.toString() : text.mid(text.lastIndexOf(u'/') + 1).toString();
}

} // namespace

VeskRepositoryPtr VeskRepository::repositoryWithURLString(const QString& urlString, const QString& name)
{
    auto repository = std::make_shared<VeskRepository>();
    repository->setUrlString(urlString);
    repository->setName(name.isNull() ? lastPathComponent(urlString) : name);
    repository->setEnabled(true);
    return repository;
}
