#include <gallery/Gallery.h>
#include <gallery/Picture.h>
#include <gallery/Scale.h>
#include <gallery/Stats.h>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int)
{
    gallery::Options options;
    if (!gallery::ReadOptions(options)) {
        return 2;
    }
    InitControls();
    gesso::SetBehavior(gesso::Behavior::Modern);
    if (options.nDots) {
        gesso::SetScaling(gesso::Scaling::PerMonitor);
        gallery::SetDots(options.nDots);
    }
    gesso::SetColorScheme(options.scheme);
    const gallery::PictureSession pictures;
    gallery::Gallery gallery(options);
    gallery::Stats stats;
    if (!gallery.Create()) {
        return 1;
    }
    if (!options.statsFile.empty() && !stats.Start(options.statsFile, gallery.Window())) {
        return 1;
    }
    return options.pictureDir.empty() ? gallery.Run() : !gallery.SavePictures();
}
