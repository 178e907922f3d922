; The installer. For the user who runs it: it asks for no administrator and touches nobody else.
; Silent with /S; another folder with /D=FOLDER as the last word. Ends with 0 when all is in place.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
!include MUI2.nsh
!include Sections.nsh

Name "Nerolith"
OutFile "${OUT_FILE}"
InstallDir "$LOCALAPPDATA\Programs\Nerolith"
InstallDirRegKey HKCU "Software\Quendrel\Nerolith" "Folder"
RequestExecutionLevel user
BrandingText "Nerolith ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Quendrel Nerolith"
VIAddVersionKey FileDescription "Nerolith installer"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey CompanyName "Quendrel"
VIAddVersionKey LegalCopyright "MIT licence"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Nerolith"
!define CLASSES "Software\Classes"
!define CAPABILITIES "Software\Quendrel\Nerolith\Capabilities"
!define APPLICATION "${CLASSES}\Applications\velmarion.exe"
!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_SMALLDESC
!define MUI_FINISHPAGE_RUN "$INSTDIR\velmarion.exe"
!define MUI_FINISHPAGE_RUN_TEXT "Start Nerolith"

!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

!macro SupportedType ENDING
  WriteRegStr HKCU "${APPLICATION}\SupportedTypes" "${ENDING}" ""
!macroend
!macro FolderVerb KIND
  WriteRegStr HKCU "${CLASSES}\${KIND}\shell\Nerolith" "" "Open in Nerolith"
  WriteRegStr HKCU "${CLASSES}\${KIND}\shell\Nerolith" "Icon" "$INSTDIR\velmarion.exe,0"
  WriteRegStr HKCU "${CLASSES}\${KIND}\shell\Nerolith\command" "" '"$INSTDIR\velmarion.exe" "%1"'
!macroend
!macro RemoveFolderVerb KIND
  DeleteRegKey HKCU "${CLASSES}\${KIND}\shell\Nerolith"
  DeleteRegKey /ifempty HKCU "${CLASSES}\${KIND}\shell"
  DeleteRegKey /ifempty HKCU "${CLASSES}\${KIND}"
!macroend

Section "Nerolith" SecProgram
  SectionIn RO
  SetOutPath "$INSTDIR"
  ; A player that runs keeps its file: better told than half replaced.
  ClearErrors
  SetOverwrite try
  File "${CONTENT}/velmarion.exe"
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONEXCLAMATION "velmarion.exe cannot be replaced. Please close Nerolith and start the installer again." /SD IDOK
    SetErrorLevel 3
    Quit
  ${EndIf}
  SetOverwrite on
  ; A picture of the user's own stays.
  ${IfNot} ${FileExists} "$INSTDIR\skin.jpg"
    File "${CONTENT}/skin.jpg"
  ${EndIf}
  File "${CONTENT}/LICENSE.txt"
  File "${CONTENT}/README.txt"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr HKCU "Software\Quendrel\Nerolith" "Folder" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Nerolith"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "Quendrel"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\velmarion.exe,0"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
  SectionGetSize ${SecProgram} $0
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

Section "Start menu entry" SecMenu
  CreateShortcut "$SMPROGRAMS\Nerolith.lnk" "$INSTDIR\velmarion.exe"
SectionEnd

; Offers the player wherever Windows asks what shall open a playlist; what opens it now stays.
Section "Offer Nerolith for .m3u playlists" SecPlaylists
  WriteRegStr HKCU "${CLASSES}\Nerolith.Playlist" "" "Playlist"
  WriteRegStr HKCU "${CLASSES}\Nerolith.Playlist\DefaultIcon" "" "$INSTDIR\velmarion.exe,0"
  WriteRegStr HKCU "${CLASSES}\Nerolith.Playlist\shell\open\command" "" '"$INSTDIR\velmarion.exe" "%1"'
  WriteRegStr HKCU "${CLASSES}\.m3u\OpenWithProgids" "Nerolith.Playlist" ""
  WriteRegStr HKCU "${CAPABILITIES}" "ApplicationName" "Nerolith"
  WriteRegStr HKCU "${CAPABILITIES}" "ApplicationDescription" "A music player that mixes"
  WriteRegStr HKCU "${CAPABILITIES}\FileAssociations" ".m3u" "Nerolith.Playlist"
  WriteRegStr HKCU "Software\RegisteredApplications" "Nerolith" "${CAPABILITIES}"
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
SectionEnd

; Among the programs of "Open with" for the songs that the player lists, and in the menu of folders.
Section "Offer Nerolith for songs and folders" SecSongs
  WriteRegStr HKCU "${APPLICATION}" "FriendlyAppName" "Nerolith"
  WriteRegStr HKCU "${APPLICATION}\DefaultIcon" "" "$INSTDIR\velmarion.exe,0"
  WriteRegStr HKCU "${APPLICATION}\shell\open\command" "" '"$INSTDIR\velmarion.exe" "%1"'
  !insertmacro SupportedType ".mp3"
  !insertmacro SupportedType ".mp2"
  !insertmacro SupportedType ".mpg"
  !insertmacro SupportedType ".wav"
  !insertmacro SupportedType ".wma"
  !insertmacro SupportedType ".asf"
  !insertmacro SupportedType ".mid"
  !insertmacro SupportedType ".aif"
  !insertmacro FolderVerb "Directory"
  !insertmacro FolderVerb "Drive"
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${SecProgram} "The player and its uninstaller."
  !insertmacro MUI_DESCRIPTION_TEXT ${SecMenu} "Nerolith among the programs of the start menu."
  !insertmacro MUI_DESCRIPTION_TEXT ${SecPlaylists} "Nerolith among the programs that Windows offers to open a .m3u file."
  !insertmacro MUI_DESCRIPTION_TEXT ${SecSongs} "Nerolith under 'Open with' for songs, and 'Open in Nerolith' in the menu of folders and drives."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Section "un.Nerolith" UnProgram
  SectionIn RO
  ClearErrors
  Delete "$INSTDIR\velmarion.exe"
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONEXCLAMATION "velmarion.exe cannot be removed. Please close Nerolith first." /SD IDOK
    SetErrorLevel 3
    Quit
  ${EndIf}
  Delete "$INSTDIR\skin.jpg"
  Delete "$INSTDIR\LICENSE.txt"
  Delete "$INSTDIR\README.txt"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Nerolith.lnk"
  DeleteRegValue HKCU "${CLASSES}\.m3u\OpenWithProgids" "Nerolith.Playlist"
  DeleteRegKey /ifempty HKCU "${CLASSES}\.m3u\OpenWithProgids"
  DeleteRegKey /ifempty HKCU "${CLASSES}\.m3u"
  DeleteRegKey HKCU "${CLASSES}\Nerolith.Playlist"
  DeleteRegKey HKCU "${APPLICATION}"
  DeleteRegKey /ifempty HKCU "${CLASSES}\Applications"
  !insertmacro RemoveFolderVerb "Directory"
  !insertmacro RemoveFolderVerb "Drive"
  DeleteRegValue HKCU "Software\RegisteredApplications" "Nerolith"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  DeleteRegKey HKCU "Software\Quendrel\Nerolith"
  DeleteRegKey /ifempty HKCU "Software\Quendrel"
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
SectionEnd

Section /o "un.My settings" UnSettings
  DeleteRegKey HKCU "Software\VB and VBA Program Settings\Velmarion"
  DeleteRegKey HKCU "Software\VB and VBA Program Settings\Nerolith"
  DeleteRegKey HKCU "Software\VB and VBA Program Settings\Microsoft Visual Basic AddIns"
SectionEnd

!insertmacro MUI_UNFUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${UnProgram} "The player."
  !insertmacro MUI_DESCRIPTION_TEXT ${UnSettings} "The folder, the modes and the other choices that Nerolith remembers."
!insertmacro MUI_UNFUNCTION_DESCRIPTION_END
