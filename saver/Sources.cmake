# What moves and by which rules knows no window and compiles natively too.
set(SAVER_ANIMATION_SOURCES
    saver/animation/ColourFamily.cpp
    saver/animation/ColourWalk.cpp
    saver/animation/Contrast.cpp
    saver/animation/FrameAnimation.cpp
    saver/animation/FrameMotion.cpp
    saver/animation/LightBuffer.cpp
    saver/animation/LineSet.cpp
    saver/animation/Random.cpp
    saver/animation/StringFigure.cpp
    saver/animation/StringFigures.cpp
    saver/animation/WindingDown.cpp
)

set(SAVER_MODEL_SOURCES
    saver/model/DesktopSettings.cpp
    saver/model/Ellipsis.cpp
    saver/model/InputRules.cpp
)

set(SAVER_WIN32_SOURCES
    saver/LineCanvas.cpp
    saver/form/frmScreenSaver.cpp
    saver/form/frmScreenSaverLoad.cpp
    saver/form/frmScreenSaverRunHost.cpp
    saver/form/frmScreenSaverUnload.cpp
    saver/form/Pointer.cpp
    saver/form/Windows9x.cpp
    saver/panel/CopyFrame.cpp
    saver/panel/PanelFrame.cpp
    saver/panel/PanelLabelWindow.cpp
    saver/panel/PanelPainter.cpp
    saver/panel/StatusPanelView.cpp
)
