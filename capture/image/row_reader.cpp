#include "capture/image/row_reader.h"

namespace vistrel
{

namespace
{

using Take = std::function<bool(const Rows& rows)>;

int takeArea(VipsRegion* region, VipsRect* area, void* take)
{
    const Rows rows{VIPS_REGION_ADDR(region, 0, area->top), qsizetype(VIPS_REGION_LSKIP(region)), area->top,
                    area->height};
    return (*static_cast<const Take*>(take))(rows) ? 0 : -1;
}

} // namespace

void readRows(const vips::VImage& image, const Take& take)
{
    if (vips_sink_disc(image.get_image(), takeArea, const_cast<Take*>(&take)) != 0) throw vips::VError();
}

} // namespace vistrel
