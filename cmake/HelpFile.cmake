# Makes the help file: the text, and behind it the pictures, each as a line of hexadecimal.
#   -DTEXT=... -DPICTURES=folder -DFILE=...
file(READ ${TEXT} text)
file(GLOB files ${PICTURES}/*.png)
set(pictures "")
foreach(picture IN LISTS files)
    cmake_path(GET picture STEM name)
    file(READ ${picture} bytes HEX)
    string(APPEND pictures "@picture ${name}\n${bytes}\n")
endforeach()
file(WRITE ${FILE} "${text}${pictures}")
