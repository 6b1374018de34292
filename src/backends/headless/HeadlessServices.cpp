#include "backends/headless/HeadlessServices.h"

namespace tavrix::headless {

HeadlessServices::HeadlessServices() {
    disks.AddDrive('A', DriveType::Removable);
    disks.AddDrive('C', DriveType::Fixed);
    disks.InsertDisk('C');
    disks.PutFolder("C:\\Tavrix");
    disks.PutFolder("C:\\Temp");
    disks.PutFolder("C:\\Windows\\System");
    files.SetFolder(KnownFolder::Program, "C:\\Tavrix");
    files.SetFolder(KnownFolder::Temporary, "C:\\Temp");
    files.SetFolder(KnownFolder::Windows, "C:\\Windows");
    files.SetFolder(KnownFolder::System, "C:\\Windows\\System");
    files.SetFolder(KnownFolder::Documents, "C:\\My Documents");
}

}  // namespace tavrix::headless
