// SPDX-License-Identifier: MIT
// The bridge standing by for the editor: decodes one picture after the other, as its standard input
// asks for them, and writes the pixels to standard output.
#pragma once

namespace fennel::nconvert {

// Until standard input ends; the exit code. The process can write no file, and a picture that takes
// longer than pictureSeconds, or more memory than the largest allowed needs, ends it.
int servePictures();

} // namespace fennel::nconvert
