#pragma once

#include "support/TestCase.h"

#include <Velmora/QcArrowTipGlobal.h>
#include <Velmora/QcDockDragController.h>
#include <Velmora/QcLoadingDialog.h>
#include <Velmora/QcProgressDialog.h>

namespace VelmoraTest {

/// A test of the gallery, whose pages make what outlives each test.
class GalleryTestCase : public TestCase
{
protected:
    GalleryTestCase()
    {
        Velmora::QcArrowTipGlobal::instance();
        Velmora::QcDockDragController::instance();
        Velmora::QcLoadingDialog::getInstance();
        Velmora::QcProgressDialog::getInstance();
    }
};

} // namespace VelmoraTest
