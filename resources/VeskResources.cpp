#include "resources/VeskResources.h"

#include <QtCore/qglobal.h>

void initialiseResources()
{
    Q_INIT_RESOURCE(vesk_pictures);
}
