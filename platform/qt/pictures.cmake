# The pictures: drawn in icons/ and turned into bare pixels here, so that the program need not even
# decode them. A list of widths becomes a constant of icons.cpp.
set(toolbar_widths 16 24 32 36 48 72) # painted: 24 at the scales 1, 1.5, 2 and 3
set(product_widths 16 24 32 48 64 96 128)
set(splash_widths 360 540 720)
set(desktop_width 256) # of what the desktop itself shows: the product and its documents

set(picture_dir ${CMAKE_CURRENT_BINARY_DIR}/icons)
file(MAKE_DIRECTORY ${picture_dir})
file(GLOB drawings CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/icons/*.svg)
add_executable(picture_pixels picture_pixels.cpp)
target_link_libraries(picture_pixels PRIVATE Qt6::Gui)
foreach(drawing IN LISTS drawings)
    cmake_path(GET drawing STEM name)
    set(widths ${toolbar_widths})
    if(name MATCHES "^(Product|Document)$")
        set(widths ${product_widths} ${desktop_width})
    elseif(name STREQUAL "Splash")
        set(widths ${splash_widths})
    endif()
    set(drawn)
    set(commands)
    foreach(width IN LISTS widths)
        set(output ${picture_dir}/${name}-${width}.png)
        list(APPEND drawn ${output})
        list(APPEND commands COMMAND ${RSVG_CONVERT} -w ${width} -o ${output} ${drawing})
    endforeach()
    list(TRANSFORM drawn REPLACE "png$" "pixels" OUTPUT_VARIABLE outputs)
    add_custom_command(OUTPUT ${drawn} ${outputs} ${commands} COMMAND picture_pixels ${drawn}
                       DEPENDS ${drawing} picture_pixels COMMENT "Drawing ${name}" VERBATIM)
    list(APPEND pictures ${outputs})
endforeach()
set(document_pictures ${pictures})
list(FILTER document_pictures INCLUDE REGEX "/Document-")
add_custom_target(document_pictures DEPENDS ${document_pictures})
add_dependencies(quillet_qt document_pictures)
list(REMOVE_ITEM pictures ${document_pictures} ${picture_dir}/Product-${desktop_width}.pixels)
set(splash_pictures ${pictures})
list(FILTER splash_pictures INCLUDE REGEX "/Splash-")
list(REMOVE_ITEM pictures ${splash_pictures})
# All but the largest are read at once when the program starts, so they are not packed.
qt_add_resources(quillet_qt pictures PREFIX / BASE ${CMAKE_CURRENT_BINARY_DIR} OPTIONS --no-compress
                 FILES ${pictures})
qt_add_resources(quillet_qt splash PREFIX / BASE ${CMAKE_CURRENT_BINARY_DIR} FILES ${splash_pictures})

foreach(kind IN ITEMS toolbar product splash)
    list(JOIN ${kind}_widths "," widths)
    string(TOUPPER QUILLET_${kind}_WIDTHS constant)
    set_property(SOURCE icons.cpp APPEND PROPERTY COMPILE_DEFINITIONS ${constant}=${widths})
endforeach()

# A picture in the places where desktops look for icons.
function(install_icon drawing kind name)
    set(theme ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
    foreach(width IN LISTS product_widths ITEMS ${desktop_width})
        install(FILES ${picture_dir}/${drawing}-${width}.png
                DESTINATION ${theme}/${width}x${width}/${kind} RENAME ${name}.png)
    endforeach()
    install(FILES ${CMAKE_SOURCE_DIR}/icons/${drawing}.svg
            DESTINATION ${theme}/scalable/${kind} RENAME ${name}.svg)
endfunction()
install_icon(Product apps quillet)
install_icon(Document mimetypes application-x-quillet)
