; What the installer and the uninstaller answer; readme.txt has the same table for those who call them. 1 and 2
; are the installer system's own: ended by the user, and by itself.
!define DONE             0
!define NO_RIGHTS        3    ; not an administrator
!define NOT_FOUND        4    ; silent: the tool's folder was not found, and none was given
!define BAD_FOLDER       5    ; the folder cannot be one to install into
!define IN_USE           6    ; a file to be replaced is in use
!define NEWER_THERE      7    ; a newer version is installed
!define COPY_FAILED      8    ; files or the entry under Programs could not be written: all is as before
!define REGISTER_FAILED  9    ; the add-in could not be registered or unregistered: all is as before
!define ELSEWHERE        10   ; installed in another folder already
!define OTHER_AT_WORK    11   ; another installer or uninstaller is at work
!define NOT_TAKEN_BACK  12   ; a step failed, and not everything could be put back
!define AFTER_RESTART    3010 ; done, but what is in use goes when Windows starts next
