#include "camsection.h"

CamSection::CamSection(QObject *parent)
    : QObject(parent)
{
}

CamSection::~CamSection() = default;
