<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU">
<context>
    <name>Words</name>
    <message>
        <source>One copy of %1 is already running</source>
        <translation>Программа %1 уже запущена</translation>
    </message>
    <message>
        <source>ERROR</source>
        <translation>ОШИБКА</translation>
    </message>
    <message>
        <source>Download a Set of Tools for the FENNEL-GFX?</source>
        <translation>Загрузить набор инструментов для FENNEL-GFX?</translation>
    </message>
    <message>
        <source>ERROR. No necessary tools for the program!</source>
        <translation>ОШИБКА. Нет инструментов, нужных программе!</translation>
    </message>
    <message>
        <source>Planned...</source>
        <translation>Запланировано...</translation>
    </message>
    <message>
        <source>The specified file is not available at this time.
Maybe this file has been moved or deleted.

File Path: %1
File Name: %2</source>
        <translation>Указанный файл сейчас недоступен.
Возможно, он перемещён или удалён.

Путь: %1
Имя файла: %2</translation>
    </message>
    <message>
        <source>Reading </source>
        <translation>Чтение файла </translation>
    </message>
    <message>
        <source>File not found: </source>
        <translation>Файл не найден: </translation>
    </message>
    <message>
        <source> not found!</source>
        <translation> не найден!</translation>
    </message>
    <message>
        <source>has no name.</source>
        <translation>не имеет имени.</translation>
    </message>
    <message>
        <source>could not be started.</source>
        <translation>не удалось запустить.</translation>
    </message>
    <message>
        <source>did not end in time and was stopped.</source>
        <translation>не завершился вовремя и был остановлен.</translation>
    </message>
    <message>
        <source>crashed.</source>
        <translation>завершился аварийно.</translation>
    </message>
    <message>
        <source>Waiting for </source>
        <translation>Ожидание программы </translation>
    </message>
    <message>
        <source>%1 is %2x%3, %4 is %5x%6.</source>
        <translation>%1 имеет размер %2x%3, а %4 — %5x%6.</translation>
    </message>
    <message>
        <source>Give both the same size: replace one of them.</source>
        <translation>Приведите их к одному размеру: замените один из них.</translation>
    </message>
    <message>
        <source>Replace it by the same picture: it is converted.</source>
        <translation>Замените его той же картинкой: она будет преобразована.</translation>
    </message>
    <message>
        <source>%1 follows a gap in the numbers of the logos.</source>
        <translation>%1 стоит после пропуска в номерах логотипов.</translation>
    </message>
    <message>
        <source>Number the logos from 00 without a gap.</source>
        <translation>Пронумеруйте логотипы от 00 без пропусков.</translation>
    </message>
    <message>
        <source>%1 is no whole font: %2</source>
        <translation>%1 — не целый шрифт: %2</translation>
    </message>
    <message>
        <source>Make the font again.</source>
        <translation>Создайте шрифт заново.</translation>
    </message>
    <message>
        <source>%1 is larger than the 512 KB that can be reached.</source>
        <translation>%1 больше 512 КБ, доступных загрузчику.</translation>
    </message>
    <message>
        <source>Make it with fewer characters or in a smaller size.</source>
        <translation>Создайте его с меньшим числом символов или меньшего размера.</translation>
    </message>
    <message>
        <source>The member %1 is missing.</source>
        <translation>Нет компонента %1.</translation>
    </message>
    <message>
        <source>Add it; File / New has one.</source>
        <translation>Добавьте его; он есть в «Файл / Новый».</translation>
    </message>
    <message>
        <source>The engine does not read the level files.</source>
        <translation>Движок не читает файлы уровней.</translation>
    </message>
    <message>
        <source>Upgrade the engine.</source>
        <translation>Обновите движок.</translation>
    </message>
    <message>
        <source>The file is gzipped: Grub4DOS reads it, syslinux does not.</source>
        <translation>Файл сжат gzip: Grub4DOS его прочтёт, syslinux — нет.</translation>
    </message>
    <message>
        <source>Save it without gzip for syslinux.</source>
        <translation>Для syslinux сохраните его без gzip.</translation>
    </message>
    <message>
        <source>%1 is on, but its member %2 is missing.</source>
        <translation>%1: включено, но нет компонента %2.</translation>
    </message>
    <message>
        <source>Add the member, choose another number, or switch the object off.</source>
        <translation>Добавьте компонент, выберите другой номер или выключите объект.</translation>
    </message>
    <message>
        <source>%1 lies outside the screen.</source>
        <translation>%1: лежит за пределами экрана.</translation>
    </message>
    <message>
        <source>Move it onto the screen, or switch it off.</source>
        <translation>Передвиньте объект на экран или выключите его.</translation>
    </message>
    <message>
        <source>%1 reaches over the edge of the screen.</source>
        <translation>%1: выходит за край экрана.</translation>
    </message>
    <message>
        <source>Move it, or make it smaller.</source>
        <translation>Передвиньте или уменьшите объект.</translation>
    </message>
    <message>
        <source>%1 stands at the place of %2.</source>
        <translation>%1: стоит на месте объекта %2.</translation>
    </message>
    <message>
        <source>Move one of them.</source>
        <translation>Передвиньте один из них.</translation>
    </message>
    <message>
        <source>%1 asks for %2 entries, and the screen holds %3 there.</source>
        <translation>%1: задано пунктов %2, а на экране помещается %3.</translation>
    </message>
    <message>
        <source>Lower %1, or move the menu up.</source>
        <translation>Уменьшите %1 или поднимите меню выше.</translation>
    </message>
    <message>
        <source>The text of %1 is hard to read on its ground.</source>
        <translation>%1: текст плохо читается на своём фоне.</translation>
    </message>
    <message>
        <source>Make one of the two lighter or darker.</source>
        <translation>Сделайте что-то одно светлее или темнее.</translation>
    </message>
    <message>
        <source>%1 is on, but no member is there for it.</source>
        <translation>%1: включено, но компонента для него нет.</translation>
    </message>
    <message>
        <source>Add the member </source>
        <translation>Добавьте компонент </translation>
    </message>
    <message>
        <source>The font lacks letters of %1: %2</source>
        <translation>В шрифте нет букв для %1: %2</translation>
    </message>
    <message>
        <source>the menu</source>
        <translation>меню</translation>
    </message>
    <message>
        <source>Make the font with these characters too, or change the text.</source>
        <translation>Создайте шрифт и с этими символами или измените текст.</translation>
    </message>
    <message>
        <source>The entry &quot;%1&quot; is %2 pixels wide, the menu %3.</source>
        <translation>Пункт «%1» шириной %2 пикс., а меню — %3.</translation>
    </message>
    <message>
        <source>Shorten the title, or widen the menu by s.menu.bar.width.</source>
        <translation>Сократите заголовок или расширьте меню через s.menu.bar.width.</translation>
    </message>
    <message>
        <source>The menu shows no entry at all.</source>
        <translation>Меню не показывает ни одного пункта.</translation>
    </message>
    <message>
        <source>Add titles, or lower s.menu.zuk.entries.</source>
        <translation>Добавьте заголовки или уменьшите s.menu.zuk.entries.</translation>
    </message>
    <message>
        <source>The title &quot;%1&quot; names a level file that cannot be.</source>
        <translation>Заголовок «%1» называет файл уровня, которого не может быть.</translation>
    </message>
    <message>
        <source>Level files go from zuk0000 to zuk0015.</source>
        <translation>Файлы уровней — от zuk0000 до zuk0015.</translation>
    </message>
    <message>
        <source>The engine knows no parameter %1.</source>
        <translation>Движок не знает параметра %1.</translation>
    </message>
    <message>
        <source>Look for a wrong letter; else nothing is lost by it.</source>
        <translation>Проверьте, нет ли опечатки; иначе он ничему не мешает.</translation>
    </message>
    <message>
        <source>%1 stands twice; the first one counts.</source>
        <translation>%1 встречается дважды; действует первый.</translation>
    </message>
    <message>
        <source>Take one of the lines out.</source>
        <translation>Уберите одну из строк.</translation>
    </message>
    <message>
        <source>%1 cannot be &quot;%2&quot;.</source>
        <translation>%1 не может быть «%2».</translation>
    </message>
    <message>
        <source>Say 0 or 1.</source>
        <translation>Укажите 0 или 1.</translation>
    </message>
    <message>
        <source>Say a colour 0xRRGGBB.</source>
        <translation>Укажите цвет 0xRRGGBB.</translation>
    </message>
    <message>
        <source>Say a number.</source>
        <translation>Укажите число.</translation>
    </message>
    <message>
        <source>No list shows the record %1.</source>
        <translation>Записи %1 нет ни в одном списке.</translation>
    </message>
    <message>
        <source>Nothing is lost by it; what wrote it can change it.</source>
        <translation>Она не мешает; изменить её может то, чем она записана.</translation>
    </message>
    <message>
        <source>%1 stands twice; the last one counts.</source>
        <translation>%1 встречается дважды; действует последний.</translation>
    </message>
    <message>
        <source>Set the value, and look whether the screen follows.</source>
        <translation>Задайте значение и посмотрите, меняется ли экран.</translation>
    </message>
    <message>
        <source>%1 is %2, and goes up to %3.</source>
        <translation>%1 равно %2, а наибольшее значение — %3.</translation>
    </message>
    <message>
        <source>Set it within its range.</source>
        <translation>Задайте значение в допустимых пределах.</translation>
    </message>
    <message>
        <source>error</source>
        <translation>ошибка</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>предупреждение</translation>
    </message>
    <message>
        <source>note</source>
        <translation>замечание</translation>
    </message>
    <message>
        <source>These files exist already in %1:
%2%3
Do you want to replace them?</source>
        <translation>В папке %1 уже есть файлы:
%2%3
Заменить их?</translation>
    </message>
    <message>
        <source>
... and %1 more</source>
        <translation>
... и ещё %1</translation>
    </message>
    <message>
        <source>Extract</source>
        <translation>Извлечение</translation>
    </message>
    <message>
        <source>CPIO Error</source>
        <translation>Ошибка CPIO</translation>
    </message>
    <message>
        <source>Save assembled gfxboot as...</source>
        <translation>Сохранить собранный gfxboot как...</translation>
    </message>
    <message>
        <source>The assembled gfxboot is kept until the program ends as
%1
Choose another name to save it.</source>
        <translation>До выхода из программы собранный gfxboot хранится как
%1
Выберите другое имя, чтобы сохранить его.</translation>
    </message>
    <message>
        <source>The name inside, %1, cannot be used.
The contents are saved as %2.</source>
        <translation>Имя внутри архива, %1, использовать нельзя.
Содержимое сохранено как %2.</translation>
    </message>
    <message>
        <source>File open....</source>
        <translation>Открытие файла...</translation>
    </message>
    <message>
        <source>All Files (*.*)|*.*|</source>
        <translation>Все файлы (*.*)|*.*|</translation>
    </message>
    <message>
        <source>Specify the folder for gfxboot extracting</source>
        <translation>Укажите папку, в которую извлечь gfxboot</translation>
    </message>
    <message>
        <source>Specify the folder with gfxboot components</source>
        <translation>Укажите папку с компонентами gfxboot</translation>
    </message>
    <message>
        <source>Additional Gfxboot info-file is absent.
Will be assembled all the files from the folder
Specified folder: </source>
        <translation>Дополнительного информационного файла gfxboot нет.
Будут собраны все файлы папки
Указанная папка: </translation>
    </message>
    <message>
        <source>gZip-files (*.gz)|*.gz|All files (*.*)|*.*|</source>
        <translation>Файлы gZip (*.gz)|*.gz|Все файлы (*.*)|*.*|</translation>
    </message>
    <message>
        <source>File to compress....</source>
        <translation>Файл для сжатия...</translation>
    </message>
    <message>
        <source>All files (*.*)|*.*|</source>
        <translation>Все файлы (*.*)|*.*|</translation>
    </message>
    <message>
        <source>File </source>
        <translation>Файл </translation>
    </message>
    <message>
        <source>.gz is already exist.</source>
        <translation>.gz уже существует.</translation>
    </message>
    <message>
        <source> is no cpio archive.</source>
        <translation> — не архив cpio.</translation>
    </message>
    <message>
        <source>%1: %2 bytes behind the end of the gzip data are ignored.</source>
        <translation>%1: байты после конца данных gzip (%2) пропущены.</translation>
    </message>
    <message>
        <source>7-Zip Error</source>
        <translation>Ошибка 7-Zip</translation>
    </message>
    <message>
        <source>Canceled by user</source>
        <translation>Отменено пользователем</translation>
    </message>
    <message>
        <source>%1 was changed by another program since it was opened here.
Do you want to replace it with your version?</source>
        <translation>%1: файл изменён другой программой после открытия.
Заменить его вашей версией?</translation>
    </message>
    <message>
        <source>Gfxboot Save</source>
        <translation>Сохранение gfxboot</translation>
    </message>
    <message>
        <source>%1 was not saved. The old file is as it was.

%2</source>
        <translation>%1 не сохранён. Старый файл остался без изменений.

%2</translation>
    </message>
    <message>
        <source>FENNEL-GFX is able to compress the resulting 
file in a gZip archive.

To do this?</source>
        <translation>FENNEL-GFX может сжать полученный 
файл в архив gZip.

Сделать это?</translation>
    </message>
    <message>
        <source>Saving As...</source>
        <translation>Сохранение под новым именем...</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Новый</translation>
    </message>
    <message>
        <source>Save gfxboot As...</source>
        <translation>Сохранить gfxboot как...</translation>
    </message>
    <message>
        <source>File %1 already exists.
Do you want to replace it?</source>
        <translation>Файл %1 уже существует.
Заменить его?</translation>
    </message>
    <message>
        <source>Gfxboot info is lost!</source>
        <translation>Информация о gfxboot потеряна!</translation>
    </message>
    <message>
        <source>File %1 is lost!
Maybe your drive %2 was unplugged.</source>
        <translation>Файл %1 потерян!
Возможно, диск %2 был отключён.</translation>
    </message>
    <message>
        <source>Your changes will be lost.
Continue?</source>
        <translation>Ваши изменения будут потеряны.
Продолжить?</translation>
    </message>
    <message>
        <source>Gfxboot ReOpen</source>
        <translation>Повторное открытие gfxboot</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Сохранить</translation>
    </message>
    <message>
        <source>%1 holds more than the lists show.
This would be lost or changed although nobody edited it:</source>
        <translation>В %1 есть больше, чем показывают списки.
Это было бы потеряно или изменено, хотя никто его не правил:</translation>
    </message>
    <message>
        <source>Keep them as they are</source>
        <translation>Оставить как есть</translation>
    </message>
    <message>
        <source>Save as the lists show</source>
        <translation>Сохранить как в списках</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>upgrade to @ZUK-MOSA@</source>
        <translation>обновление до @ZUK-MOSA@</translation>
    </message>
    <message>
        <source>Unsaved work cannot be kept until this is mended:
%1

The work goes on.</source>
        <translation>Несохранённая работа не записывается, пока не исправлено следующее:
%1

Работа продолжается.</translation>
    </message>
    <message>
        <source>ERROR. File back.jpg not found!
              This is really a &quot;gfxboot message&quot;-file?

&quot;Gfxboot message&quot; is a cpio-archive, but additionally it can be compressed with gZip.
You can specify only those variants!</source>
        <translation>ОШИБКА. Файл back.jpg не найден!
              Это действительно файл «gfxboot message»?

«Gfxboot message» — это архив cpio, который может быть дополнительно сжат gZip.
Можно указать только такие файлы!</translation>
    </message>
    <message>
        <source>%1 is not a picture that can be shown.
The screen counts as %2x%3 until it is changed.</source>
        <translation>%1 — не картинка, которую можно показать.
Размер экрана считается %2x%3, пока она не заменена.</translation>
    </message>
    <message>
        <source>The engine of the &quot;%1&quot;, %2, does not read the level files ZUK????.CFG.
On the boot screen it shows the background and a menu of its own, and no other object.</source>
        <translation>Движок файла «%1», %2, не читает файлы уровней ZUK????.CFG.
На экране загрузки он покажет фон и своё меню, но не другие объекты.</translation>
    </message>
    <message>
        <source>Debian&apos;s</source>
        <translation>из Debian</translation>
    </message>
    <message>
        <source>an unknown one</source>
        <translation>неизвестный</translation>
    </message>
    <message>
        <source>WARNING!

  Gfxboot kernel version of the &quot;%1&quot; is obsolete!
  FENNEL-GFX (GUI) can upgrade file &quot;init&quot; to the current version.

  To do this?</source>
        <translation>ВНИМАНИЕ!

  Версия ядра gfxboot в «%1» устарела!
  FENNEL-GFX (GUI) может обновить файл «init» до текущей версии.

  Сделать это?</translation>
    </message>
    <message>
        <source>Upgrade</source>
        <translation>Обновление</translation>
    </message>
    <message>
        <source>%1 has no record of this place: it cannot be stored</source>
        <translation>В %1 нет записи об этом месте: сохранить его нельзя</translation>
    </message>
    <message>
        <source>%1 has changed since it was opened. A save replaces it.</source>
        <translation>%1 изменился после открытия. Сохранение заменит его.</translation>
    </message>
    <message>
        <source>%1 is not there any more. A save writes it anew.</source>
        <translation>%1 больше нет. Сохранение запишет его заново.</translation>
    </message>
    <message>
        <source>The files are restored, without values that were not written into them.</source>
        <translation>Файлы восстановлены, без значений, которые не были в них записаны.</translation>
    </message>
    <message>
        <source>The values are restored into %1.</source>
        <translation>Значения восстановлены в %1.</translation>
    </message>
    <message>
        <source>Nothing of it can be restored.</source>
        <translation>Восстановить ничего нельзя.</translation>
    </message>
    <message>
        <source>Grub4DOS loader of the boot test (grldr)</source>
        <translation>Загрузчик Grub4DOS для пробной загрузки (grldr)</translation>
    </message>
    <message>
        <source>Grub4DOS loader (grldr*)|grldr*|All files|*|</source>
        <translation>Загрузчик Grub4DOS (grldr*)|grldr*|Все файлы|*|</translation>
    </message>
    <message>
        <source>The boot test boots with syslinux.</source>
        <translation>Пробная загрузка выполняется через syslinux.</translation>
    </message>
    <message>
        <source>The boot test boots with %1.</source>
        <translation>Пробная загрузка выполняется через %1.</translation>
    </message>
    <message>
        <source>%1 stays black on the boot screen: %2</source>
        <translation>%1 останется чёрным на экране загрузки: %2</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Влево</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Вверх</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Вниз</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Вправо</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Ввод</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Выход</translation>
    </message>
    <message>
        <source>Boot test: preview at the left of the line, booted screen at the right</source>
        <translation>Пробная загрузка: слева от линии предпросмотр, справа загруженный экран</translation>
    </message>
    <message>
        <source>Mark differences</source>
        <translation>Отметить различия</translation>
    </message>
    <message>
        <source>%1 goes to the booted menu</source>
        <translation>%1 — в загруженное меню</translation>
    </message>
    <message>
        <source>Boot again</source>
        <translation>Загрузить снова</translation>
    </message>
    <message>
        <source>Boots what is on the stage now</source>
        <translation>Загружает то, что сейчас на сцене</translation>
    </message>
    <message>
        <source>Watch</source>
        <translation>Смотреть</translation>
    </message>
    <message>
        <source>Opens the running guest in QEMU&apos;s window</source>
        <translation>Открывает работающую машину в окне QEMU</translation>
    </message>
    <message>
        <source>Ends the guest</source>
        <translation>Завершает машину</translation>
    </message>
    <message>
        <source>%1 % of the pixels differ</source>
        <translation>Различаются %1 % пикселей</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
    <message>
        <source>No colour can be picked from the screen here.
</source>
        <translation>Взять цвет с экрана здесь нельзя.
</translation>
    </message>
    <message>
        <source>colour of %1</source>
        <translation>цвет: %1</translation>
    </message>
    <message>
        <source>transparency of %1</source>
        <translation>прозрачность: %1</translation>
    </message>
    <message>
        <source>colours of %1</source>
        <translation>цвета: %1</translation>
    </message>
    <message>
        <source>Transparency</source>
        <translation>Прозрачность</translation>
    </message>
    <message>
        <source>0 shows the fill, 255 only the background</source>
        <translation>0 — видна заливка, 255 — только фон</translation>
    </message>
    <message>
        <source>Fill and transparency as the file had them when it was opened</source>
        <translation>Заливка и прозрачность, какими они были при открытии файла</translation>
    </message>
    <message>
        <source>The fill of the selected object</source>
        <translation>Заливка выбранного объекта</translation>
    </message>
    <message>
        <source>Pick</source>
        <translation>Пипетка</translation>
    </message>
    <message>
        <source>Pick the fill from the screen; Esc cancels</source>
        <translation>Взять заливку с экрана; Esc — отмена</translation>
    </message>
    <message>
        <source>Choose the fill</source>
        <translation>Выбрать заливку</translation>
    </message>
    <message>
        <source>The screen cannot be read.</source>
        <translation>Не удаётся прочитать экран.</translation>
    </message>
    <message>
        <source>Gfxboot: %1
Path: %2
Generation: %3
Compressed: %4
Files: %5, %6 byte
Background: %7</source>
        <translation>Gfxboot: %1
Путь: %2
Поколение: %3
Сжатие: %4
Файлы: %5, %6 байт
Фон: %7</translation>
    </message>
    <message>
        <source>no</source>
        <translation>нет</translation>
    </message>
    <message>
        <source>Get INFO</source>
        <translation>Информация</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Отменить</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Вернуть</translation>
    </message>
    <message>
        <source>Double click on item to open a dialogue 

&quot;Change the file&quot;

Or right mouse button click to bring up the context menu

Or use a special tab for gfxboot component</source>
        <translation>Двойной щелчок по строке откроет диалог 

«Заменить файл»

Правая кнопка мыши вызовет контекстное меню

Ещё можно открыть особую вкладку компонента</translation>
    </message>
    <message>
        <source>Planned: Calling PopupMenu for %1</source>
        <translation>ПЛАН: Вызов PopupMenu для %1</translation>
    </message>
    <message>
        <source>The tab Config has no row for %1:
this gfxboot cannot switch the button.</source>
        <translation>На вкладке «Настройки» нет строки для %1:
этот gfxboot не умеет переключать эту кнопку.</translation>
    </message>
    <message>
        <source>switching of %1</source>
        <translation>переключение: %1</translation>
    </message>
    <message>
        <source>Gfxboot component: &quot;%1&quot;</source>
        <translation>Компонент gfxboot: «%1»</translation>
    </message>
    <message>
        <source>&quot;Gfxboot message&quot; (then simply &quot;gfxboot&quot;) is a cpio-archive , 
but additionally it can be compressed with gZip.

You can choose any of the variants.</source>
        <translation>«Gfxboot message» (далее просто «gfxboot») — это архив cpio, 
который может быть дополнительно сжат gZip.

Можно выбрать любой из вариантов.</translation>
    </message>
    <message>
        <source>Choose current flash drive and lst-menu</source>
        <translation>Выберите текущий флеш-диск и меню lst</translation>
    </message>
    <message>
        <source>Uncheck to use ZUKxxxx.CFG data</source>
        <translation>Снимите флажок, чтобы видеть данные ZUKxxxx.CFG</translation>
    </message>
    <message>
        <source>Check it to use MenuLevel data over ZUKxxxx.CFG data</source>
        <translation>Установите флажок, чтобы видеть данные меню поверх ZUKxxxx.CFG</translation>
    </message>
    <message>
        <source>%1 x %2 pixels, advance %3, baseline %4
grey: box, blue: baseline, red: pen before and after</source>
        <translation>%1 x %2 пикс., шаг %3, базовая линия %4
серым: рамка, синим: базовая линия, красным: перо до и после</translation>
    </message>
    <message>
        <source>adding of a font</source>
        <translation>добавление шрифта</translation>
    </message>
    <message>
        <source>font</source>
        <translation>шрифт</translation>
    </message>
    <message>
        <source>FNT-file content</source>
        <translation>Содержимое FNT-файла</translation>
    </message>
    <message>
        <source>FENNEL-GFX with GUI (v. %1    - %2) 
    /Component of @ZUK-MOSA@ project/
FENNEL-GFX is a shell (GUI) for some of the utilities 
7za.exe
cpio.exe
ListUsbDrives.exe
mkblfont.exe
nconvert.exe
QEMU.exe
This kit allows you to create and/or modify the
ready-made gfxboots</source>
        <translation>FENNEL-GFX с GUI (v. %1    - %2) 
    /Компонент проекта @ZUK-MOSA@/
FENNEL-GFX — это оболочка (GUI) для некоторых утилит 
7za.exe
cpio.exe
ListUsbDrives.exe
mkblfont.exe
nconvert.exe
QEMU.exe
Этот набор позволяет создавать и изменять
готовые gfxboot</translation>
    </message>
    <message>
        <source>About &quot;%1&quot;</source>
        <translation>О программе «%1»</translation>
    </message>
    <message>
        <source>This is the oldest version. At the same time
it is the most closed version of the gfxboot.
All we can do is to change the pictures.</source>
        <translation>Это самая старая версия gfxboot. В то же время
это и самая закрытая версия.
Всё, что можно сделать, — заменить картинки.</translation>
    </message>
    <message>
        <source>This is the first flexible version of the gfxboot
Thanks to everybody who made it possible to change
the gfxboot without recompiling it.
Settings are made via the configuration file named
gfxboot.cfg</source>
        <translation>Это первая гибкая версия gfxboot
Спасибо всем, благодаря кому стало возможно менять
gfxboot без перекомпиляции.
Настройки задаются файлом конфигурации
gfxboot.cfg</translation>
    </message>
    <message>
        <source>DblClick or ENTER for &quot;Value&quot; edit</source>
        <translation>Двойной щелчок или ENTER — правка значения</translation>
    </message>
    <message>
        <source>MenuLevel data</source>
        <translation>Данные меню</translation>
    </message>
    <message>
        <source>value of %1</source>
        <translation>значение: %1</translation>
    </message>
    <message>
        <source>switching on of %1</source>
        <translation>включение: %1</translation>
    </message>
    <message>
        <source>switching off of %1</source>
        <translation>выключение: %1</translation>
    </message>
    <message>
        <source>File &quot;%1&quot; can not be removed.
It is in the &quot;Required Files&quot; list
However, you can try to EDIT it.</source>
        <translation>Файл «%1» удалить нельзя.
Он входит в список обязательных файлов.
Но можно попробовать его ИЗМЕНИТЬ.</translation>
    </message>
    <message>
        <source>Required Files</source>
        <translation>Обязательные файлы</translation>
    </message>
    <message>
        <source>deletion of %1</source>
        <translation>удаление: %1</translation>
    </message>
    <message>
        <source>Do you really want to delete all files?</source>
        <translation>Вы действительно хотите удалить все файлы?</translation>
    </message>
    <message>
        <source>Files Deleting</source>
        <translation>Удаление файлов</translation>
    </message>
    <message>
        <source>deletion of %1 files</source>
        <translation>удаление файлов: %1</translation>
    </message>
    <message>
        <source>choice of %1</source>
        <translation>выбор: %1</translation>
    </message>
    <message>
        <source>%1 cannot be stored.
A parameter of the boot screen is a number from 0 to %2.</source>
        <translation>%1 сохранить нельзя.
Параметр экрана загрузки — число от 0 до %2.</translation>
    </message>
    <message>
        <source>background</source>
        <translation>фон</translation>
    </message>
    <message>
        <source>adding of a background</source>
        <translation>добавление фона</translation>
    </message>
    <message>
        <source>size of the backgrounds</source>
        <translation>размер фонов</translation>
    </message>
    <message>
        <source>adding of a logo</source>
        <translation>добавление логотипа</translation>
    </message>
    <message>
        <source>size of the logos</source>
        <translation>размер логотипов</translation>
    </message>
    <message>
        <source>picture of %1</source>
        <translation>картинка: %1</translation>
    </message>
    <message>
        <source>never saved</source>
        <translation>не сохранялся</translation>
    </message>
    <message>
        <source>   damaged</source>
        <translation>   повреждено</translation>
    </message>
    <message>
        <source>This work is gone, or another window has it.</source>
        <translation>Этой работы больше нет, или она открыта в другом окне.</translation>
    </message>
    <message>
        <source>What was found is put aside in %1.</source>
        <translation>Найденное отложено в %1.</translation>
    </message>
    <message>
        <source>It stays in %1.</source>
        <translation>Она остаётся в %1.</translation>
    </message>
    <message>
        <source>Restore unsaved work</source>
        <translation>Восстановление несохранённой работы</translation>
    </message>
    <message>
        <source>text of %1</source>
        <translation>текст: %1</translation>
    </message>
    <message>
        <source>File already uses UTF-8 encoding</source>
        <translation>Файл уже в кодировке UTF-8</translation>
    </message>
    <message>
        <source>The changes of %1 are not saved.
Discard them?</source>
        <translation>Изменения в %1 не сохранены.
Отбросить их?</translation>
    </message>
    <message>
        <source>What moves is shown as it stands so many seconds after the menu has come,
and the loader&apos;s timeout (0: none):</source>
        <translation>Подвижное показывается таким, каким оно будет через столько секунд после появления меню,
и время ожидания загрузчика (0 — нет):</translation>
    </message>
    <message>
        <source>Moment of the boot</source>
        <translation>Момент загрузки</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 из %2</translation>
    </message>
    <message>
        <source>of</source>
        <translation>из</translation>
    </message>
    <message>
        <source>Check symbols to be included in fnt-file</source>
        <translation>Отметьте символы, которые войдут в fnt-файл</translation>
    </message>
    <message>
        <source>Select to view</source>
        <translation>Показать</translation>
    </message>
    <message>
        <source>Unicode Characters Page: </source>
        <translation>Страница символов Юникода: </translation>
    </message>
    <message>
        <source>not in this font</source>
        <translation>нет в этом шрифте</translation>
    </message>
    <message>
        <source>Font INFO</source>
        <translation>О шрифте</translation>
    </message>
    <message>
        <source>Two sleepy wolves jog beneath a quiet moon</source>
        <translation>Однажды в студёную зимнюю пору</translation>
    </message>
    <message>
        <source>Change font...</source>
        <translation>Заменить шрифт...</translation>
    </message>
    <message>
        <source>Examples</source>
        <translation>Примеры</translation>
    </message>
    <message>
        <source>Example text</source>
        <translation>Пример текста</translation>
    </message>
    <message>
        <source>Type words of your own to see them in this font</source>
        <translation>Введите свои слова, чтобы увидеть их этим шрифтом</translation>
    </message>
    <message>
        <source>Load Default</source>
        <translation>По умолчанию</translation>
    </message>
    <message>
        <source>Load Character Set from FENNEL.ini</source>
        <translation>Загрузить набор символов из FENNEL.ini</translation>
    </message>
    <message>
        <source>Told by the name of the font; choose another one to change it</source>
        <translation>Следует из имени шрифта; чтобы изменить, выберите другой шрифт</translation>
    </message>
    <message>
        <source>Windows ttf-file INFO</source>
        <translation>Файл ttf</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>Жирный</translation>
    </message>
    <message>
        <source>Italic</source>
        <translation>Курсив</translation>
    </message>
    <message>
        <source>Win Font Size</source>
        <translation>Размер шрифта</translation>
    </message>
    <message>
        <source>Space Width</source>
        <translation>Ширина пробела</translation>
    </message>
    <message>
        <source>Line Space</source>
        <translation>Между строками</translation>
    </message>
    <message>
        <source>This is a sample of a</source>
        <translation>Пример</translation>
    </message>
    <message>
        <source>multi-line text</source>
        <translation>в две строки</translation>
    </message>
    <message>
        <source>Letter Space</source>
        <translation>Между буквами</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Применить</translation>
    </message>
    <message>
        <source>No TrueType font is installed on this system.</source>
        <translation>В системе нет ни одного шрифта TrueType.</translation>
    </message>
    <message>
        <source>%1 cannot be shown here, so the examples stand in another font. The boot screen&apos;s font is made from its file all the same.</source>
        <translation>%1 здесь показать нельзя, поэтому примеры набраны другим шрифтом. Шрифт экрана загрузки всё равно делается из его файла.</translation>
    </message>
    <message>
        <source>%1 characters selected</source>
        <translation>Выбрано символов: %1</translation>
    </message>
    <message>
        <source>, %1 of them not in this font: they are left out</source>
        <translation>, из них нет в этом шрифте и будут пропущены: %1</translation>
    </message>
    <message>
        <source>, %1 too wide for a font file at this size: they are left out</source>
        <translation>, слишком широки при этом размере и будут пропущены: %1</translation>
    </message>
    <message>
        <source>. There are no Latin letters</source>
        <translation>. Нет латинских букв</translation>
    </message>
    <message>
        <source>Close (Esc)</source>
        <translation>Закрыть (Esc)</translation>
    </message>
    <message>
        <source> px</source>
        <translation> пикс.</translation>
    </message>
    <message>
        <source>Pixels of the boot screen</source>
        <translation>Пиксели экрана загрузки</translation>
    </message>
    <message>
        <source>Edit </source>
        <translation>Изменить </translation>
    </message>
    <message>
        <source>Delete </source>
        <translation>Удалить </translation>
    </message>
    <message>
        <source>%1 Context menu of the tab</source>
        <translation>%1 Контекстное меню для вкладки</translation>
    </message>
    <message>
        <source>Columns AutoWidth</source>
        <translation>Автоширина столбцов</translation>
    </message>
    <message>
        <source>Reorder ITEMs</source>
        <translation>Упорядочить</translation>
    </message>
    <message>
        <source>Delete all files</source>
        <translation>Удалить все файлы</translation>
    </message>
    <message>
        <source>Add NEW file</source>
        <translation>Добавить НОВЫЙ файл</translation>
    </message>
    <message>
        <source>Resize all backgrounds...</source>
        <translation>Изменить размер всех фонов...</translation>
    </message>
    <message>
        <source>Resize all LOGOs...</source>
        <translation>Изменить размер всех логотипов...</translation>
    </message>
    <message>
        <source>You can not edit data, while they are overlap by
the &quot;MenuLevel data&quot;!

Uncheck &quot;MenuLevel data&quot; to edit ZUKxxxx.CFG data</source>
        <translation>Данные нельзя изменять, пока их перекрывают
«Данные меню»!

Снимите флажок «Данные меню», чтобы править данные ZUKxxxx.CFG</translation>
    </message>
    <message>
        <source>Too old version of the gfxboot.
Fonts are not supported</source>
        <translation>Слишком старая версия gfxboot.
Шрифты не поддерживаются</translation>
    </message>
    <message>
        <source>Planned...
Menu TEXT changing...</source>
        <translation>Запланировано...
Изменение ТЕКСТА меню...</translation>
    </message>
    <message>
        <source>
UpDown: %1</source>
        <translation>
Счётчик: %1</translation>
    </message>
    <message>
        <source>Use a special tab for this item</source>
        <translation>Для этого есть особая вкладка</translation>
    </message>
    <message>
        <source>This file is not a text file</source>
        <translation>Этот файл не текстовый</translation>
    </message>
    <message>
        <source>Delete the file %1?</source>
        <translation>Удалить файл %1?</translation>
    </message>
    <message>
        <source>FileName</source>
        <translation>Имя файла</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Размер</translation>
    </message>
    <message>
        <source>CFG data</source>
        <translation>Данные CFG</translation>
    </message>
    <message>
        <source>LST data</source>
        <translation>Данные LST</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Пояснение</translation>
    </message>
    <message>
        <source>Need to upgrade</source>
        <translation>Нужно обновить</translation>
    </message>
    <message>
        <source>gfxboot kernel</source>
        <translation>ядро gfxboot</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Файл</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Длина</translation>
    </message>
    <message>
        <source>File Name</source>
        <translation>Имя файла</translation>
    </message>
    <message>
        <source>File Size</source>
        <translation>Размер файла</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>Параметр</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Значение</translation>
    </message>
    <message>
        <source>Comment from the &quot;gfxboot.cfg&quot;</source>
        <translation>Комментарий из «gfxboot.cfg»</translation>
    </message>
    <message>
        <source>File &quot;gfxboot.cfg&quot; is absent</source>
        <translation>Файла «gfxboot.cfg» нет</translation>
    </message>
    <message>
        <source>Width of the right panel</source>
        <translation>Ширина правой панели</translation>
    </message>
    <message>
        <source>Number of the file</source>
        <translation>Номер файла</translation>
    </message>
    <message>
        <source>Add a file</source>
        <translation>Добавить файл</translation>
    </message>
    <message>
        <source>Delete the file</source>
        <translation>Удалить файл</translation>
    </message>
    <message>
        <source>Edit the file</source>
        <translation>Изменить файл</translation>
    </message>
    <message>
        <source>ZUKxxxx.CFG Level value</source>
        <translation>Значение уровня из ZUKxxxx.CFG</translation>
    </message>
    <message>
        <source>MenuLevel value</source>
        <translation>Значение из меню</translation>
    </message>
    <message>
        <source>Russian comment</source>
        <translation>Пояснение по-русски</translation>
    </message>
    <message>
        <source># Additional list -&gt;</source>
        <translation># Дополнительно -&gt;</translation>
    </message>
    <message>
        <source>of HIDDEN -&gt;</source>
        <translation>СКРЫТЫЕ -&gt;</translation>
    </message>
    <message>
        <source>parameters</source>
        <translation>параметры</translation>
    </message>
    <message>
        <source>Size: %1 byte</source>
        <translation>Размер: %1 байт</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Меню</translation>
    </message>
    <message>
        <source>Gfxboot</source>
        <translation>Файлы</translation>
    </message>
    <message>
        <source>Config</source>
        <translation>Настройки</translation>
    </message>
    <message>
        <source>Background(s)</source>
        <translation>Фоны</translation>
    </message>
    <message>
        <source>Font(s)</source>
        <translation>Шрифты</translation>
    </message>
    <message>
        <source>%1 settings tab</source>
        <translation>Вкладка настроек: %1</translation>
    </message>
    <message>
        <source>This gfxboot includes %1 images called %2</source>
        <translation>Картинок с именем %2 в этом gfxboot: %1</translation>
    </message>
    <message>
        <source>Choose a colour</source>
        <translation>Выбрать цвет</translation>
    </message>
    <message>
        <source>Pick a colour from the screen</source>
        <translation>Взять цвет с экрана</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Перечитать</translation>
    </message>
    <message>
        <source>Read as UTF-8</source>
        <translation>Прочитать как UTF-8</translation>
    </message>
    <message>
        <source>this engine&apos;s rules are not known: try Boot test</source>
        <translation>правила этого движка неизвестны: попробуйте пробную загрузку</translation>
    </message>
    <message>
        <source>fonts are missing or broken: schematic letters</source>
        <translation>шрифтов нет или они испорчены: буквы схематичны</translation>
    </message>
    <message>
        <source>move of %1</source>
        <translation>перемещение: %1</translation>
    </message>
    <message>
        <source>(%1;%2), %3x%4, Transp.=%5</source>
        <translation>(%1;%2), %3x%4, Прозр.=%5</translation>
    </message>
    <message>
        <source>(%1;%2) RGB=0x%3</source>
        <translation>(%1;%2) RGB=0x%3</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Фон</translation>
    </message>
    <message>
        <source>nudge %1</source>
        <translation>сдвиг: %1</translation>
    </message>
    <message>
        <source>size of %1</source>
        <translation>размер: %1</translation>
    </message>
    <message>
        <source>Entry %1 of %2</source>
        <translation>Пункт %1 из %2</translation>
    </message>
    <message>
        <source>Select the &quot;Current Flash Device&quot; from Flash-menu to start QEMU</source>
        <translation>Чтобы запустить QEMU, выберите «Текущий флеш-диск» в меню «Флеш»</translation>
    </message>
    <message>
        <source>This gfxboot is not @ZUK-MOSA@
So some features of the FENNEL-GFX (GUI) are disabled

You can try to upgrade the selected gfxboot with
File / Upgrade gfxboot to @ZUK-MOSA@</source>
        <translation>Этот gfxboot — не @ZUK-MOSA@
Поэтому часть возможностей FENNEL-GFX (GUI) отключена

Выбранный gfxboot можно попробовать обновить:
Файл / Обновить gfxboot до @ZUK-MOSA@</translation>
    </message>
    <message>
        <source>INFO</source>
        <translation>СПРАВКА</translation>
    </message>
    <message>
        <source>Hide Right Panel</source>
        <translation>Скрыть правую панель</translation>
    </message>
    <message>
        <source>Show Right Panel</source>
        <translation>Показать правую панель</translation>
    </message>
    <message>
        <source>Hide Bottom Panel</source>
        <translation>Скрыть нижнюю панель</translation>
    </message>
    <message>
        <source>Show Bottom Panel</source>
        <translation>Показать нижнюю панель</translation>
    </message>
    <message>
        <source>Open a gfxboot message file (Ctrl+O)
or make a new one (Ctrl+N).</source>
        <translation>Откройте файл gfxboot message (Ctrl+O)
или создайте новый (Ctrl+N).</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Файл</translation>
    </message>
    <message>
        <source>Open gfxboot...</source>
        <translation>Открыть gfxboot...</translation>
    </message>
    <message>
        <source>ReOpen ...</source>
        <translation>Открыть снова ...</translation>
    </message>
    <message>
        <source>Save  gfxboot as ...</source>
        <translation>Сохранить gfxboot как ...</translation>
    </message>
    <message>
        <source>Save current background as splashimage</source>
        <translation>Сохранить текущий фон как splashimage</translation>
    </message>
    <message>
        <source>Upgrade gfxboot to @ZUK-MOSA@</source>
        <translation>Обновить gfxboot до @ZUK-MOSA@</translation>
    </message>
    <message>
        <source>Last used</source>
        <translation>Последние файлы</translation>
    </message>
    <message>
        <source>Clear the list</source>
        <translation>Очистить список</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Выход</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Вид</translation>
    </message>
    <message>
        <source>As it boots</source>
        <translation>Как при загрузке</translation>
    </message>
    <message>
        <source>Schematic</source>
        <translation>Схематично</translation>
    </message>
    <message>
        <source>Try the menu</source>
        <translation>Опробовать меню</translation>
    </message>
    <message>
        <source>Moment of the boot...</source>
        <translation>Момент загрузки...</translation>
    </message>
    <message>
        <source>Scale 1:1 (100%)</source>
        <translation>Масштаб 1:1 (100%)</translation>
    </message>
    <message>
        <source>Fill the screen</source>
        <translation>По размеру экрана</translation>
    </message>
    <message>
        <source>Custom scale...</source>
        <translation>Другой масштаб...</translation>
    </message>
    <message>
        <source>Scales</source>
        <translation>Масштабы</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Язык</translation>
    </message>
    <message>
        <source>SplashImage view</source>
        <translation>Вид SplashImage</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Правка</translation>
    </message>
    <message>
        <source>Replace any gfxboot&apos;s components</source>
        <translation>Заменить компоненты gfxboot</translation>
    </message>
    <message>
        <source>Extract components of some gfxboot into folder...</source>
        <translation>Извлечь компоненты gfxboot в папку...</translation>
    </message>
    <message>
        <source>Assemble gfxboot from component folder...</source>
        <translation>Собрать gfxboot из папки компонентов...</translation>
    </message>
    <message>
        <source>Gfxboot without gfxboot.cfg</source>
        <translation>Gfxboot без gfxboot.cfg</translation>
    </message>
    <message>
        <source> - change back.jpg...</source>
        <translation> - заменить back.jpg...</translation>
    </message>
    <message>
        <source>Gfxboot v.3-3 custom</source>
        <translation>Gfxboot v.3-3 настраиваемый</translation>
    </message>
    <message>
        <source> - EDIT gfxboot.cfg...</source>
        <translation> - ПРАВИТЬ gfxboot.cfg...</translation>
    </message>
    <message>
        <source> - change FONT</source>
        <translation> - заменить ШРИФТ</translation>
    </message>
    <message>
        <source>Gfxboot @ZUK-MOSA@</source>
        <translation>Gfxboot @ZUK-MOSA@</translation>
    </message>
    <message>
        <source> - SOUND</source>
        <translation> - ЗВУК</translation>
    </message>
    <message>
        <source> - add FONT...</source>
        <translation> - добавить ШРИФТ...</translation>
    </message>
    <message>
        <source> - add BACK...</source>
        <translation> - добавить ФОН...</translation>
    </message>
    <message>
        <source> - add LOGO...</source>
        <translation> - добавить ЛОГОТИП...</translation>
    </message>
    <message>
        <source> Resize...</source>
        <translation> Изменить размер...</translation>
    </message>
    <message>
        <source> Resize LOGO</source>
        <translation> Изменить размер логотипа</translation>
    </message>
    <message>
        <source> 16:9 support...</source>
        <translation> Поддержка 16:9...</translation>
    </message>
    <message>
        <source>Set Clipboard as background</source>
        <translation>Сделать фоном картинку из буфера обмена</translation>
    </message>
    <message>
        <source>F&amp;lash</source>
        <translation>Ф&amp;леш</translation>
    </message>
    <message>
        <source>Check Flash Drive as &quot;Current Flash&quot; for QEMU</source>
        <translation>Отметьте флеш-диск как «Текущий» для QEMU</translation>
    </message>
    <message>
        <source>UnCheck all Drives</source>
        <translation>Снять отметки со всех дисков</translation>
    </message>
    <message>
        <source>Monitor Flash connections</source>
        <translation>Следить за подключением флеш-дисков</translation>
    </message>
    <message>
        <source>Get INFO about all Flash Drives</source>
        <translation>Информация обо всех флеш-дисках</translation>
    </message>
    <message>
        <source>&amp;Menu.lst</source>
        <translation>&amp;Меню Menu.lst</translation>
    </message>
    <message>
        <source>Show Embedded menu.lst</source>
        <translation>Показать встроенное menu.lst</translation>
    </message>
    <message>
        <source>Select MENU from X:</source>
        <translation>Выбрать МЕНЮ с диска X:</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Инструменты</translation>
    </message>
    <message>
        <source>tools set is empty</source>
        <translation>набор инструментов пуст</translation>
    </message>
    <message>
        <source>Boot test</source>
        <translation>Пробная загрузка</translation>
    </message>
    <message>
        <source>Loader of the boot test...</source>
        <translation>Загрузчик пробной загрузки...</translation>
    </message>
    <message>
        <source>QEMU</source>
        <translation>QEMU</translation>
    </message>
    <message>
        <source>Start QEMU with Current Flash Drive</source>
        <translation>Запустить QEMU с текущим флеш-диском</translation>
    </message>
    <message>
        <source>Select Video BIOS for QEMU</source>
        <translation>Выбрать видео-BIOS для QEMU</translation>
    </message>
    <message>
        <source>  - Standart VGABIOS (1M VideoRAM)</source>
        <translation>  - Стандартный VGABIOS (1M видеопамяти)</translation>
    </message>
    <message>
        <source>  - Cirrus Logic VGABIOS (4M VideoRAM)</source>
        <translation>  - Cirrus Logic VGABIOS (4M видеопамяти)</translation>
    </message>
    <message>
        <source>  - NonStandard VGABIOS (16M VideoRAM)</source>
        <translation>  - Нестандартный VGABIOS (16M видеопамяти)</translation>
    </message>
    <message>
        <source>NConvert</source>
        <translation>NConvert</translation>
    </message>
    <message>
        <source>Convert picture to jpg...</source>
        <translation>Преобразовать картинку в jpg...</translation>
    </message>
    <message>
        <source>Save Clipboard as jpg...</source>
        <translation>Сохранить буфер обмена как jpg...</translation>
    </message>
    <message>
        <source>Resize picture...</source>
        <translation>Изменить размер картинки...</translation>
    </message>
    <message>
        <source>Crop picture...</source>
        <translation>Обрезать картинку...</translation>
    </message>
    <message>
        <source>7-Zip (7za.exe)</source>
        <translation>7-Zip (7za.exe)</translation>
    </message>
    <message>
        <source>Extract the contents from gz-archive...</source>
        <translation>Извлечь содержимое gz-архива...</translation>
    </message>
    <message>
        <source>Pack file into gz-arhive...</source>
        <translation>Сжать файл в gz-архив...</translation>
    </message>
    <message>
        <source>CPIO</source>
        <translation>CPIO</translation>
    </message>
    <message>
        <source>Get list files of gfxboot...</source>
        <translation>Список файлов gfxboot...</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Справка</translation>
    </message>
    <message>
        <source>@ZUK-MOSA@</source>
        <translation>@ZUK-MOSA@</translation>
    </message>
    <message>
        <source> - English forum</source>
        <translation> - Английский форум</translation>
    </message>
    <message>
        <source> - Russian forum</source>
        <translation> - Русский форум</translation>
    </message>
    <message>
        <source> - On-line FAQ</source>
        <translation> - Вопросы и ответы в сети</translation>
    </message>
    <message>
        <source> - @ZUK-MOSA@ on YouTube</source>
        <translation> - @ZUK-MOSA@ на YouTube</translation>
    </message>
    <message>
        <source>FENNEL-GFX with GUI</source>
        <translation>FENNEL-GFX с GUI</translation>
    </message>
    <message>
        <source> - Video Lessons on YouTube</source>
        <translation> - Видеоуроки на YouTube</translation>
    </message>
    <message>
        <source>About</source>
        <translation>О программе</translation>
    </message>
    <message>
        <source>PLANNED: context 1</source>
        <translation>ПЛАН: контекст1</translation>
    </message>
    <message>
        <source>PLANNED: context 2</source>
        <translation>ПЛАН: контекст2</translation>
    </message>
    <message>
        <source>PLANNED: context 3</source>
        <translation>ПЛАН: контекст3</translation>
    </message>
    <message>
        <source>PLANNED: ddd</source>
        <translation>ПЛАН: ddd</translation>
    </message>
    <message>
        <source>PLANNED: eee</source>
        <translation>ПЛАН: eee</translation>
    </message>
    <message>
        <source>PLANNED: fff</source>
        <translation>ПЛАН: fff</translation>
    </message>
    <message>
        <source>F1 Button On/Off</source>
        <translation>Кнопка F1: вкл./выкл.</translation>
    </message>
    <message>
        <source>F2 Button On/Off</source>
        <translation>Кнопка F2: вкл./выкл.</translation>
    </message>
    <message>
        <source>F9 Button On/Off</source>
        <translation>Кнопка F9: вкл./выкл.</translation>
    </message>
    <message>
        <source>F10 Button On/Off</source>
        <translation>Кнопка F10: вкл./выкл.</translation>
    </message>
    <message>
        <source>EDIT gfxboot.cfg...</source>
        <translation>ПРАВИТЬ gfxboot.cfg...</translation>
    </message>
    <message>
        <source>Change current back...</source>
        <translation>Заменить текущий фон...</translation>
    </message>
    <message>
        <source>16:9 support</source>
        <translation>Поддержка 16:9</translation>
    </message>
    <message>
        <source>ReOpen %1  </source>
        <translation>Открыть снова %1  </translation>
    </message>
    <message>
        <source>size of LOGO</source>
        <translation>размер логотипа</translation>
    </message>
    <message>
        <source>size of HelpPanel</source>
        <translation>размер панели справки</translation>
    </message>
    <message>
        <source>%1 x %2 pixels</source>
        <translation>%1 x %2 пикс.</translation>
    </message>
    <message>
        <source>No preview.</source>
        <translation>Просмотра нет.</translation>
    </message>
    <message>
        <source>Choose folder...</source>
        <translation>Выбор папки...</translation>
    </message>
    <message>
        <source>custom</source>
        <translation>настраиваемый</translation>
    </message>
    <message>
        <source>old version ?</source>
        <translation>старая версия ?</translation>
    </message>
    <message>
        <source>Select the gfxboot using File/Open</source>
        <translation>Выберите gfxboot: Файл / Открыть</translation>
    </message>
    <message>
        <source>Specify the Current Flash Drive using the Flash/Choose</source>
        <translation>Укажите текущий флеш-диск: Флеш / Отметьте</translation>
    </message>
    <message>
        <source>no current gfxboot</source>
        <translation>gfxboot не открыт</translation>
    </message>
    <message>
        <source>gfxboot size</source>
        <translation>размер gfxboot</translation>
    </message>
    <message>
        <source>gfxboot Object</source>
        <translation>Объект gfxboot</translation>
    </message>
    <message>
        <source>(x;y), WxH, transp</source>
        <translation>(x;y), ШxВ, прозр.</translation>
    </message>
    <message>
        <source>Height of the bottom panel</source>
        <translation>Высота нижней панели</translation>
    </message>
    <message>
        <source>No USB drives</source>
        <translation>Нет USB-дисков</translation>
    </message>
    <message>
        <source>New Gfxboot @ZUK-MOSA@</source>
        <translation>Новый gfxboot @ZUK-MOSA@</translation>
    </message>
    <message>
        <source>Open Gfxboot</source>
        <translation>Открыть gfxboot</translation>
    </message>
    <message>
        <source>Save Gfxboot</source>
        <translation>Сохранить gfxboot</translation>
    </message>
    <message>
        <source>Fill Screen</source>
        <translation>По размеру экрана</translation>
    </message>
    <message>
        <source>HideTabsPanel</source>
        <translation>Скрыть панель вкладок</translation>
    </message>
    <message>
        <source>HidePreviewPanel</source>
        <translation>Скрыть панель просмотра</translation>
    </message>
    <message>
        <source>Change Current Back</source>
        <translation>Заменить текущий фон</translation>
    </message>
    <message>
        <source>Get Picture From Clipboard</source>
        <translation>Взять картинку из буфера обмена</translation>
    </message>
    <message>
        <source>FNT-edit</source>
        <translation>Правка FNT</translation>
    </message>
    <message>
        <source>TXT-edit</source>
        <translation>Правка TXT</translation>
    </message>
    <message>
        <source>JPG-edit</source>
        <translation>Правка JPG</translation>
    </message>
    <message>
        <source>Resize Gfxboot</source>
        <translation>Изменить размер gfxboot</translation>
    </message>
    <message>
        <source>16:9 Support</source>
        <translation>Поддержка 16:9</translation>
    </message>
    <message>
        <source>Current Flash</source>
        <translation>Текущий флеш-диск</translation>
    </message>
    <message>
        <source>Current Flash Drive Info</source>
        <translation>Информация о текущем флеш-диске</translation>
    </message>
    <message>
        <source>All USB Drives INFO</source>
        <translation>Информация обо всех USB-дисках</translation>
    </message>
    <message>
        <source>MonitoringIsOff</source>
        <translation>Слежение выключено</translation>
    </message>
    <message>
        <source>USB-Monitoring is ON</source>
        <translation>Слежение за USB включено</translation>
    </message>
    <message>
        <source>USB-Monitoring is OFF</source>
        <translation>Слежение за USB выключено</translation>
    </message>
    <message>
        <source>Run QEMU</source>
        <translation>Запустить QEMU</translation>
    </message>
    <message>
        <source>Button ID=%1
Function is not defined!</source>
        <translation>Кнопка ID=%1
Функция не задана!</translation>
    </message>
    <message>
        <source>Font. Edit </source>
        <translation>Шрифт. Правка </translation>
    </message>
    <message>
        <source>from </source>
        <translation>из </translation>
    </message>
    <message>
        <source>Font name: </source>
        <translation>Имя шрифта: </translation>
    </message>
    <message>
        <source>Current scale (</source>
        <translation>Текущий масштаб (</translation>
    </message>
    <message>
        <source>Characters Page
</source>
        <translation>Страница символов
</translation>
    </message>
    <message>
        <source>Selected Characters</source>
        <translation>Выбранные символы</translation>
    </message>
    <message>
        <source>Font. Add</source>
        <translation>Шрифт. Добавление</translation>
    </message>
    <message>
        <source>Load from...</source>
        <translation>Загрузить из...</translation>
    </message>
    <message>
        <source>Load Character Set </source>
        <translation>Загрузить набор символов </translation>
    </message>
    <message>
        <source>File name: </source>
        <translation>Имя файла: </translation>
    </message>
    <message>
        <source>Symbols in set: %1, Fontheight:%2px, Lineheight:%3px</source>
        <translation>Символов в наборе: %1, высота шрифта: %2 пикс., высота строки: %3 пикс.</translation>
    </message>
    <message>
        <source> ==&gt; offset=0x</source>
        <translation> ==&gt; смещение=0x</translation>
    </message>
    <message>
        <source>Position in set =</source>
        <translation>Место в наборе =</translation>
    </message>
    <message>
        <source>

Chr bitmap representation:
</source>
        <translation>

Растр символа:
</translation>
    </message>
    <message>
        <source>Planned: Calling PopupMenu for List1(%1)</source>
        <translation>ПЛАН: Вызов PopupMenu для List1(%1)</translation>
    </message>
    <message>
        <source> This is an example of the font used.</source>
        <translation> Это пример текста этим шрифтом.</translation>
    </message>
    <message>
        <source>Font creating error</source>
        <translation>Ошибка создания шрифта</translation>
    </message>
    <message>
        <source>ERROR. The character set is empty</source>
        <translation>ОШИБКА. Набор символов пуст</translation>
    </message>
    <message>
        <source>ERROR. File could not be created</source>
        <translation>ОШИБКА. Не удалось создать файл</translation>
    </message>
    <message>
        <source>There is no number left for a further font.</source>
        <translation>Для нового шрифта не осталось номера.</translation>
    </message>
    <message>
        <source>Select the font to be changed first.</source>
        <translation>Сначала выберите шрифт, который нужно заменить.</translation>
    </message>
    <message>
        <source>Gfxboot version is too old. Font in an unsupported format. </source>
        <translation>Версия gfxboot слишком старая. Шрифт в неподдерживаемом формате. </translation>
    </message>
    <message>
        <source>Gfxboot v3.3 custom. Supports one font. </source>
        <translation>Gfxboot v3.3 настраиваемый. Поддерживает один шрифт. </translation>
    </message>
    <message>
        <source>Gfxboot @ZUK-MOSA@. Multi Font Support. </source>
        <translation>Gfxboot @ZUK-MOSA@. Поддерживает несколько шрифтов. </translation>
    </message>
    <message>
        <source>
Tag @ZUK-MOSA@ is missing. </source>
        <translation>
Метки @ZUK-MOSA@ нет. </translation>
    </message>
    <message>
        <source>
The real font is undefined. Will be shown of calculated font.</source>
        <translation>
Настоящий шрифт неизвестен. Будет показан подобранный.</translation>
    </message>
    <message>
        <source>bytes</source>
        <translation>байт</translation>
    </message>
    <message>
        <source>Unsupported</source>
        <translation>Неподдерживаемый</translation>
    </message>
    <message>
        <source>format</source>
        <translation>формат</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Набор</translation>
    </message>
    <message>
        <source>symbols</source>
        <translation>символов</translation>
    </message>
    <message>
        <source>Fontheight</source>
        <translation>Высота шрифта</translation>
    </message>
    <message>
        <source>px</source>
        <translation>пикс.</translation>
    </message>
    <message>
        <source>Lineheight</source>
        <translation>Высота строки</translation>
    </message>
    <message>
        <source>DEFAULT</source>
        <translation>ПО УМОЛЧАНИЮ</translation>
    </message>
    <message>
        <source>Calculated Size</source>
        <translation>Расчётный размер</translation>
    </message>
    <message>
        <source> pt</source>
        <translation> пт</translation>
    </message>
    <message>
        <source>Calculated LineSpace</source>
        <translation>Расчётный интервал</translation>
    </message>
    <message>
        <source>tag</source>
        <translation>метка</translation>
    </message>
    <message>
        <source>...MISSING</source>
        <translation>...ОТСУТСТВУЕТ</translation>
    </message>
    <message>
        <source>TAG</source>
        <translation>МЕТКА</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Единица</translation>
    </message>
    <message>
        <source>Menu file</source>
        <translation>Файл меню</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Путь</translation>
    </message>
    <message>
        <source>Primary gfxmenu</source>
        <translation>Основной gfxmenu</translation>
    </message>
    <message>
        <source>Embedded</source>
        <translation>Встроенное</translation>
    </message>
    <message>
        <source>menu</source>
        <translation>меню</translation>
    </message>
    <message>
        <source>First, you need to open some gfxboot</source>
        <translation>Сначала откройте какой-нибудь gfxboot</translation>
    </message>
    <message>
        <source>%1 lines of %2 name a parameter that cannot be.
They are left out.</source>
        <translation>Строк, называющих невозможный параметр: %1, файл %2.
Они пропущены.</translation>
    </message>
    <message>
        <source>&lt;== WRONG PARAMETER NAME!</source>
        <translation>&lt;== НЕВЕРНОЕ ИМЯ ПАРАМЕТРА!</translation>
    </message>
    <message>
        <source>FENNEL-GFX: Perhaps this is a hidden parameter</source>
        <translation>FENNEL-GFX: возможно, это скрытый параметр</translation>
    </message>
    <message>
        <source>The mode must be supported by VideoBIOS, otherwise, it just fallback to default</source>
        <translation>Режим должен поддерживаться видео-BIOS, иначе включается режим по умолчанию</translation>
    </message>
    <message>
        <source>If set to 1, show the &quot;Boot Options&quot; panel</source>
        <translation>1 — показывать панель «Boot Options»</translation>
    </message>
    <message>
        <source>Color of &quot;Boot Options&quot; text</source>
        <translation>Цвет текста «Boot Options»</translation>
    </message>
    <message>
        <source>Color of &quot;Boot Options&quot; label</source>
        <translation>Цвет подписи «Boot Options»</translation>
    </message>
    <message>
        <source>This message file has added keyboard shortcut function, for example, pressing &apos;1&apos; would choose the first menu item. If you don&apos;t want it, set this variable to 1</source>
        <translation>В этом файле message есть быстрые клавиши: например, «1» выбирает первый пункт меню. Если они не нужны, задайте 1</translation>
    </message>
    <message>
        <source>If set to 1, hide the &quot;Help&quot; button (F1)</source>
        <translation>1 — скрыть кнопку «Help» (F1)</translation>
    </message>
    <message>
        <source>If set to 1, hide the &quot;Language&quot; button (F2)</source>
        <translation>1 — скрыть кнопку «Language» (F2)</translation>
    </message>
    <message>
        <source>If set to 1, hide the &quot;PowerOFF&quot; button (F10)</source>
        <translation>1 — скрыть кнопку «PowerOFF» (F10)</translation>
    </message>
    <message>
        <source>If set to 1, hide the &quot;Reboot&quot; button (F9)</source>
        <translation>1 — скрыть кнопку «Reboot» (F9)</translation>
    </message>
    <message>
        <source>Background color of info box</source>
        <translation>Цвет фона информационного окна</translation>
    </message>
    <message>
        <source>Text color of info box</source>
        <translation>Цвет текста информационного окна</translation>
    </message>
    <message>
        <source>Color of load bar</source>
        <translation>Цвет полосы загрузки</translation>
    </message>
    <message>
        <source>Color of Menu bar</source>
        <translation>Цвет полосы меню</translation>
    </message>
    <message>
        <source>The minimum width of Menu select bar</source>
        <translation>Наименьшая ширина полосы выбора в меню</translation>
    </message>
    <message>
        <source>Maximum number of Menu entry to display</source>
        <translation>Наибольшее число показываемых пунктов меню</translation>
    </message>
    <message>
        <source>Horisontal position of Menu</source>
        <translation>Положение меню по горизонтали</translation>
    </message>
    <message>
        <source>Vertical position of Menu</source>
        <translation>Положение меню по вертикали</translation>
    </message>
    <message>
        <source>Normal text color</source>
        <translation>Цвет обычного текста</translation>
    </message>
    <message>
        <source>Color of selected text</source>
        <translation>Цвет выбранного текста</translation>
    </message>
    <message>
        <source>Background color of panel pop-up box</source>
        <translation>Цвет фона всплывающего окна панели</translation>
    </message>
    <message>
        <source>Border color of panel pop-up box</source>
        <translation>Цвет рамки всплывающего окна панели</translation>
    </message>
    <message>
        <source>Color of panel hotkey (Fn)</source>
        <translation>Цвет клавиш (Fn) панели</translation>
    </message>
    <message>
        <source>Color of panel text</source>
        <translation>Цвет текста панели</translation>
    </message>
    <message>
        <source>Color of panel title</source>
        <translation>Цвет заголовка панели</translation>
    </message>
    <message>
        <source>Penguin theme likelihood in percent; -1 = auto</source>
        <translation>Вероятность темы с пингвинами в процентах; -1 = авто</translation>
    </message>
    <message>
        <source>Background color of dialog background</source>
        <translation>Цвет фона диалога</translation>
    </message>
    <message>
        <source>Welcome</source>
        <translation>Приветствие</translation>
    </message>
    <message>
        <source>If set to 1, hide the current selection item below the bottom menu</source>
        <translation>1 — не показывать выбранный пункт под меню</translation>
    </message>
    <message>
        <source>%1: parameter %2%3 = %4   →   dropped</source>
        <translation>%1: параметр %2%3 = %4   →   отброшен</translation>
    </message>
    <message>
        <source>%1: the last %2 bytes   →   dropped</source>
        <translation>%1: последние байты (%2)   →   отброшены</translation>
    </message>
    <message>
        <source>MenuPanel</source>
        <translation>Панель меню</translation>
    </message>
    <message>
        <source>MenuBar</source>
        <translation>Полоса меню</translation>
    </message>
    <message>
        <source>ButtonsPanel</source>
        <translation>Панель кнопок</translation>
    </message>
    <message>
        <source>OptionsPanel</source>
        <translation>Панель опций</translation>
    </message>
    <message>
        <source>LOGO</source>
        <translation>Логотип</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Время</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Дата</translation>
    </message>
    <message>
        <source>InfoLine</source>
        <translation>Инфострока</translation>
    </message>
    <message>
        <source>HelpPanel</source>
        <translation>Панель справки</translation>
    </message>
    <message>
        <source>Sparkle №</source>
        <translation>Искра №</translation>
    </message>
    <message>
        <source>RunLine</source>
        <translation>Бегущая строка</translation>
    </message>
    <message>
        <source>Glasses</source>
        <translation>Стёкла</translation>
    </message>
    <message>
        <source>Linear Timer</source>
        <translation>Линейный таймер</translation>
    </message>
    <message>
        <source>Circular Timer</source>
        <translation>Круговой таймер</translation>
    </message>
    <message>
        <source>Numerical Timer</source>
        <translation>Числовой таймер</translation>
    </message>
    <message>
        <source>WaitPanel</source>
        <translation>Панель ожидания</translation>
    </message>
    <message>
        <source>Animation</source>
        <translation>Анимация</translation>
    </message>
    <message>
        <source>InfoPanel</source>
        <translation>Инфопанель</translation>
    </message>
    <message>
        <source>nonamed Panel №</source>
        <translation>безымянная панель №</translation>
    </message>
    <message>
        <source>Logo_msk.jpg is missing or is no picture.
The logo is shown 100 by 50 pixels large.</source>
        <translation>Файла Logo_msk.jpg нет, или это не картинка.
Логотип показан размером 100 на 50 пикселей.</translation>
    </message>
    <message>
        <source>File: %1
Parameter :%2: does not exist!
Perhaps you need to update the version of the FENNEL-GFX</source>
        <translation>Файл: %1
Параметр :%2: не существует!
Возможно, нужно обновить версию FENNEL-GFX</translation>
    </message>
    <message>
        <source>%1: %2x%3 pixels are too many to show</source>
        <translation>%1: %2x%3 пикселей — слишком много, чтобы показать</translation>
    </message>
    <message>
        <source>File %1 not found</source>
        <translation>Файл %1 не найден</translation>
    </message>
    <message>
        <source>Hide %1 button</source>
        <translation>Скрыть кнопку %1</translation>
    </message>
    <message>
        <source>Show %1 button</source>
        <translation>Показать кнопку %1</translation>
    </message>
    <message>
        <source>Screen size: </source>
        <translation>Размер экрана: </translation>
    </message>
    <message>
        <source>
Real background size: </source>
        <translation>
Настоящий размер фона: </translation>
    </message>
    <message>
        <source>
Current scale: </source>
        <translation>
Текущий масштаб: </translation>
    </message>
    <message>
        <source>%
Screen background size: </source>
        <translation>%
Размер фона на экране: </translation>
    </message>
    <message>
        <source>
Enter your scale (1-100%) </source>
        <translation>
Введите масштаб (1-100%) </translation>
    </message>
    <message>
        <source>Minimal size is 400x300</source>
        <translation>Наименьший размер — 400x300</translation>
    </message>
    <message>
        <source>The scale is too small</source>
        <translation>Масштаб слишком мал</translation>
    </message>
    <message>
        <source>Custom scale</source>
        <translation>Другой масштаб</translation>
    </message>
    <message>
        <source> not found</source>
        <translation> не найден</translation>
    </message>
    <message>
        <source>All Boot Managers (such Grub4DOS) allow VESA-compatible graphics modes only.
   1. 320x200
   2. 640x480
   3. 800x600
   4. 1024x768
   5. 1280x1024
Specify number of graphics mode.</source>
        <translation>Загрузчики (такие как Grub4DOS) допускают только графические режимы VESA.
   1. 320x200
   2. 640x480
   3. 800x600
   4. 1024x768
   5. 1280x1024
Укажите номер графического режима.</translation>
    </message>
    <message>
        <source>Gfxboot Resize</source>
        <translation>Изменение размера gfxboot</translation>
    </message>
    <message>
        <source>It is planned that this menu item will be scaled to all the components
(panels, images, fonts).
Currently offered to scale the background only.
</source>
        <translation>Планируется, что этот пункт меню будет масштабировать все компоненты
(панели, картинки, шрифты).
Пока предлагается масштабировать только фон.
</translation>
    </message>
    <message>
        <source>When the gfxboot is used on a wide-screen monitors without 
resolution with the proportion of 16:9 (or 16:10, or ...), we
can see the geometric distortion of the graphics.
This occurs because the gfxboot works outside of the operating
system and has no support from the drivers. The gfxboot can
use only the VESA-modes.
To remove distortions, is necessary to stretch the images 
vertically in the process of preparing.</source>
        <translation>Если gfxboot работает на широкоэкранном мониторе 
с пропорцией 16:9 (или 16:10, или ...), видны
геометрические искажения графики.
Так происходит потому, что gfxboot работает вне
операционной системы, без поддержки драйверов.
Он может использовать только режимы VESA.
Чтобы убрать искажения, нужно при подготовке 
растянуть картинки по вертикали.</translation>
    </message>
    <message>
        <source>%1 is missing, which the boot test needs: install the package %2.</source>
        <translation>Нет %1, а пробной загрузке он нужен: установите пакет %2.</translation>
    </message>
    <message>
        <source> could not be started.</source>
        <translation> не удалось запустить.</translation>
    </message>
    <message>
        <source>%1 could not make the image of the boot test.
%2</source>
        <translation>%1 не смог создать образ для пробной загрузки.
%2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no key.</source>
        <translation>«%1» — не клавиша.</translation>
    </message>
    <message>
        <source>The boot does not come to rest. This is what it shows.</source>
        <translation>Загрузка не приходит в покой. Вот что она показывает.</translation>
    </message>
    <message>
        <source>Making the image ...</source>
        <translation>Создаётся образ ...</translation>
    </message>
    <message>
        <source>Booting ...</source>
        <translation>Загрузка ...</translation>
    </message>
    <message>
        <source>Booting without KVM ...</source>
        <translation>Загрузка без KVM ...</translation>
    </message>
    <message>
        <source>The boot screen stands.</source>
        <translation>Экран загрузки готов.</translation>
    </message>
    <message>
        <source>The guest restarted the machine.</source>
        <translation>Гостевая система перезапустила машину.</translation>
    </message>
    <message>
        <source>The guest switched the machine off.</source>
        <translation>Гостевая система выключила машину.</translation>
    </message>
    <message>
        <source>it stopped with an internal error</source>
        <translation>остановка с внутренней ошибкой</translation>
    </message>
    <message>
        <source>The boot ended in text mode.</source>
        <translation>Загрузка закончилась в текстовом режиме.</translation>
    </message>
    <message>
        <source>its processor does next to nothing</source>
        <translation>процессор почти ничего не делает</translation>
    </message>
    <message>
        <source>The guest stopped: </source>
        <translation>Гостевая машина остановилась: </translation>
    </message>
    <message>
        <source>: again without it.</source>
        <translation>: ещё раз без него.</translation>
    </message>
    <message>
        <source>QEMU ended</source>
        <translation>QEMU завершился</translation>
    </message>
    <message>
        <source>QEMU&apos;s window was closed.</source>
        <translation>Окно QEMU закрыто.</translation>
    </message>
    <message>
        <source>QEMU ended.
</source>
        <translation>QEMU завершился.
</translation>
    </message>
    <message>
        <source>QEMU&apos;s window did not open.
</source>
        <translation>Окно QEMU не открылось.
</translation>
    </message>
    <message>
        <source>Connected drive </source>
        <translation>Подключён диск </translation>
    </message>
    <message>
        <source>Disconnected drive </source>
        <translation>Отключён диск </translation>
    </message>
    <message>
        <source>:
Type: </source>
        <translation>:
Тип: </translation>
    </message>
    <message>
        <source>
VolumeName: </source>
        <translation>
Метка тома: </translation>
    </message>
    <message>
        <source>Select MENU from flash drive </source>
        <translation>Выбрать МЕНЮ с флеш-диска </translation>
    </message>
    <message>
        <source>No &quot;*.lst&quot; files</source>
        <translation>Нет файлов «*.lst»</translation>
    </message>
    <message>
        <source>Just select one of the flash drive listed below.
For this flash drive (named &quot;Current Flash&quot;) you can run QEMU</source>
        <translation>Просто выберите один из флеш-дисков ниже.
С этим флеш-диском (он называется «Текущим») можно запустить QEMU</translation>
    </message>
    <message>
        <source>The resulting image is placed in the Clipboard
You can:
1. Save the clipboard as jpg-file
   Tools/NConvert/Save Clipboard as jpg...
2. Or set it as background 
   Edit/Set Clipboard as background</source>
        <translation>Полученная картинка помещена в буфер обмена
Её можно:
1. Сохранить из буфера как jpg-файл
   Инструменты/NConvert/Сохранить буфер обмена как jpg...
2. Или сделать фоном 
   Правка/Сделать фоном картинку из буфера обмена</translation>
    </message>
    <message>
        <source>Save Clipboard image as...</source>
        <translation>Сохранить картинку из буфера обмена как...</translation>
    </message>
    <message>
        <source>NonJPG Files |*.bmp;*.png;*.pcx;*.gif;*.tif;*.tga;*.cur;*.jpeg;*.ico|</source>
        <translation>Не JPG |*.bmp;*.png;*.pcx;*.gif;*.tif;*.tga;*.cur;*.jpeg;*.ico|</translation>
    </message>
    <message>
        <source>jpg-files (*.jpg)|*.jpg|</source>
        <translation>Файлы jpg (*.jpg)|*.jpg|</translation>
    </message>
    <message>
        <source>Enter new width (0=Cancel)</source>
        <translation>Введите новую ширину (0=Отмена)</translation>
    </message>
    <message>
        <source>Enter new height (0=Cancel)</source>
        <translation>Введите новую высоту (0=Отмена)</translation>
    </message>
    <message>
        <source> cannot be loaded.</source>
        <translation> не удаётся загрузить.</translation>
    </message>
    <message>
        <source>Perhaps nconvert error...</source>
        <translation>Возможно, ошибка nconvert...</translation>
    </message>
    <message>
        <source>Jpg file already exist!
</source>
        <translation>Файл jpg уже существует!
</translation>
    </message>
    <message>
        <source>A picture cannot be resized into its own file: </source>
        <translation>Картинку нельзя масштабировать в её собственный файл: </translation>
    </message>
    <message>
        <source>
Nconvert is sensitive to certain characters in the path.
For example &quot;#&quot;, &quot;&amp;&quot;, &quot;$&quot;</source>
        <translation>
Nconvert чувствителен к некоторым символам в пути.
Например, «#», «&amp;», «$»</translation>
    </message>
    <message>
        <source>You want to change the size of the file: </source>
        <translation>Вы хотите изменить Size файла: </translation>
    </message>
    <message>
        <source>Planned...Crop/Resize/Waterproof/Brightness
</source>
        <translation>Запланированы действия...Crop/Resize/Waterproof/Brightness
</translation>
    </message>
    <message>
        <source>Perhaps the Clipboard is empty or contains no image data.</source>
        <translation>Возможно, буфер обмена пуст или в нём нет картинки.</translation>
    </message>
    <message>
        <source>ERROR...</source>
        <translation>ОШИБКА...</translation>
    </message>
    <message>
        <source>ERROR...
</source>
        <translation>ОШИБКА...
</translation>
    </message>
    <message>
        <source>FENNEL-GFX. USB Drives INFO</source>
        <translation>FENNEL-GFX. Информация о USB-дисках</translation>
    </message>
    <message>
        <source>Specify the dimensions of LOGO.
Format:   WIDTH x HEIGHT</source>
        <translation>Укажите размеры логотипа.
Формат:   ШИРИНА x ВЫСОТА</translation>
    </message>
    <message>
        <source>LOGO Resize</source>
        <translation>Изменение размера логотипа</translation>
    </message>
    <message>
        <source>This txt-file is associated with </source>
        <translation>Этот txt-файл связан с </translation>
    </message>
    <message>
        <source>There is no free number left for a new file </source>
        <translation>Не осталось свободного номера для нового файла </translation>
    </message>
    <message>
        <source>All picture Files |*.jpg;*.bmp;*.png;*.pcx;*.gif;*.tif;*.tga;*.cur;*.jpeg;*.ico|jpg-files (*.jpg)|*.jpg|</source>
        <translation>Все картинки |*.jpg;*.bmp;*.png;*.pcx;*.gif;*.tif;*.tga;*.cur;*.jpeg;*.ico|Файлы jpg (*.jpg)|*.jpg|</translation>
    </message>
    <message>
        <source>For the safety of your Operating System FENNEL-GFX can
run QEMU only for removable disks.

Choose one of them as &quot;Current Flash&quot; from menu &quot;Flash&quot;</source>
        <translation>Ради безопасности вашей операционной системы FENNEL-GFX
запускает QEMU только со съёмными дисками.

Отметьте один из них как «Текущий» в меню «Флеш»</translation>
    </message>
    <message>
        <source> could not be started.
</source>
        <translation> не удалось запустить.
</translation>
    </message>
    <message>
        <source>Strange! It took about 5 seconds, 
and QEMU does not start. 
Perhaps there was an error.</source>
        <translation>Странно! Прошло около 5 секунд, 
а QEMU не запускается. 
Возможно, произошла ошибка.</translation>
    </message>
    <message>
        <source>QEMU cannot open a window: install the package qemu-system-gui.</source>
        <translation>QEMU не может открыть окно: установите пакет qemu-system-gui.</translation>
    </message>
    <message>
        <source>The display cannot be opened: start the editor from the desktop.</source>
        <translation>Не удаётся открыть дисплей: запустите редактор из рабочего стола.</translation>
    </message>
    <message>
        <source>The video BIOS is lost: choose one in the menu Tools, QEMU.</source>
        <translation>Видео-BIOS потерян: выберите его в меню «Инструменты», QEMU.</translation>
    </message>
    <message>
        <source>The loader does not take the message: it has no working boot engine (the member init), or is no plain archive. syslinux boots no gzipped message.</source>
        <translation>Загрузчик не принимает файл message: в нём нет рабочего движка (компонента init), или это не простой архив. syslinux не загружает сжатые gzip файлы.</translation>
    </message>
    <message>
        <source>The boot engine gave up: it found no screen mode that suits, or too little memory.</source>
        <translation>Движок загрузки сдался: нет подходящего режима экрана или слишком мало памяти.</translation>
    </message>
    <message>
        <source>The menu booted an entry; there is nothing behind it here.</source>
        <translation>Меню запустило пункт; за ним здесь ничего нет.</translation>
    </message>
    <message>
        <source>gfxboot.c32 and syslinux are of different versions.</source>
        <translation>gfxboot.c32 и syslinux разных версий.</translation>
    </message>
    <message>
        <source>The loader could not load one of its own files.</source>
        <translation>Загрузчик не смог загрузить один из своих файлов.</translation>
    </message>
    <message>
        <source>The stick of the test does not boot.</source>
        <translation>Проверочный диск не загружается.</translation>
    </message>
    <message>
        <source>The message does not fit into the memory.</source>
        <translation>Файл message не помещается в память.</translation>
    </message>
    <message>
        <source>The loader waits at its own prompt: the menu was left.</source>
        <translation>Загрузчик ждёт в своей командной строке: меню закрыто.</translation>
    </message>
    <message>
        <source>Save splashimage as...</source>
        <translation>Сохранить splashimage как...</translation>
    </message>
    <message>
        <source>Splash</source>
        <translation>Splash</translation>
    </message>
    <message>
        <source>Some gfxboots, for example @ZUK-MOSA@, use video memory.
If video memory is not sufficient, then gfxboot @ZUK-MOSA@
disables some visual effects.
To receive a report about the amount of main and graphics
memory, press &quot;Ins&quot; key, while the gfxboot @ZUK-MOSA@
is working</source>
        <translation>Некоторые gfxboot, например @ZUK-MOSA@, используют видеопамять.
Если видеопамяти не хватает, gfxboot @ZUK-MOSA@
отключает часть визуальных эффектов.
Чтобы узнать объём основной памяти и видеопамяти,
нажмите клавишу «Ins» во время работы gfxboot
@ZUK-MOSA@</translation>
    </message>
    <message>
        <source>Removable drive </source>
        <translation>Съёмный диск </translation>
    </message>
    <message>
        <source>Local drive </source>
        <translation>Локальный диск </translation>
    </message>
    <message>
        <source>Network drive </source>
        <translation>Сетевой диск </translation>
    </message>
    <message>
        <source>CD-ROM drive </source>
        <translation>Дисковод CD-ROM </translation>
    </message>
    <message>
        <source>RAM drive </source>
        <translation>RAM-диск </translation>
    </message>
    <message>
        <source>Font file: </source>
        <translation>Файл шрифта: </translation>
    </message>
    <message>
        <source>A file, a member or a tool is not there.</source>
        <translation>Нет файла, компонента или инструмента.</translation>
    </message>
    <message>
        <source>The rights for this are missing.</source>
        <translation>Для этого не хватает прав.</translation>
    </message>
    <message>
        <source>There is not enough room.</source>
        <translation>Не хватает места.</translation>
    </message>
    <message>
        <source>The file is damaged or of another format.</source>
        <translation>Файл повреждён или другого формата.</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>Файл слишком велик.</translation>
    </message>
    <message>
        <source>This kind of file is not supported.</source>
        <translation>Файлы такого вида не поддерживаются.</translation>
    </message>
    <message>
        <source>A tool did not do its work.</source>
        <translation>Инструмент не выполнил свою работу.</translation>
    </message>
    <message>
        <source>Reading or writing failed.</source>
        <translation>Не удалось прочитать или записать.</translation>
    </message>
    <message>
        <source>Preview and booted screen</source>
        <translation>Предпросмотр и загруженный экран</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Красный</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Зелёный</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Синий</translation>
    </message>
    <message>
        <source>Characters of the page</source>
        <translation>Символы страницы</translation>
    </message>
    <message>
        <source>Block of characters</source>
        <translation>Блок символов</translation>
    </message>
    <message>
        <source>Example in the chosen font</source>
        <translation>Пример выбранным шрифтом</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>Шрифт</translation>
    </message>
    <message>
        <source>Two</source>
        <translation>Два</translation>
    </message>
    <message>
        <source>words</source>
        <translation>слова</translation>
    </message>
    <message>
        <source>Chosen ranges</source>
        <translation>Выбранные диапазоны</translation>
    </message>
    <message>
        <source>Characters of the font file</source>
        <translation>Символы файла шрифта</translation>
    </message>
    <message>
        <source>Rows of the tab</source>
        <translation>Строки вкладки</translation>
    </message>
    <message>
        <source>Pictures of the tab</source>
        <translation>Картинки вкладки</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Состояние</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>неизвестно</translation>
    </message>
    <message>
        <source>on</source>
        <translation>вкл.</translation>
    </message>
    <message>
        <source>off</source>
        <translation>выкл.</translation>
    </message>
    <message>
        <source>Preview of the boot screen</source>
        <translation>Предпросмотр экрана загрузки</translation>
    </message>
    <message>
        <source>Text1</source>
        <translation>Текст1</translation>
    </message>
    <message>
        <source>WinFontSize</source>
        <translation>Размер в Windows</translation>
    </message>
    <message>
        <source>size</source>
        <translation>размер</translation>
    </message>
    <message>
        <source>space</source>
        <translation>пробел</translation>
    </message>
    <message>
        <source>letter space</source>
        <translation>между буквами</translation>
    </message>
    <message>
        <source>line space</source>
        <translation>между строками</translation>
    </message>
    <message>
        <source>Scale it to %1x%2</source>
        <translation>Привести к размеру %1x%2</translation>
    </message>
    <message>
        <source>Convert it</source>
        <translation>Преобразовать</translation>
    </message>
    <message>
        <source>Move it onto the screen</source>
        <translation>Передвинуть на экран</translation>
    </message>
    <message>
        <source>Switch it off</source>
        <translation>Выключить</translation>
    </message>
    <message>
        <source>Show %1 entries</source>
        <translation>Показывать пунктов: %1</translation>
    </message>
    <message>
        <source>Switch the later one off</source>
        <translation>Выключить более поздний</translation>
    </message>
    <message>
        <source>Say %1, the default</source>
        <translation>Задать %1, значение по умолчанию</translation>
    </message>
    <message>
        <source>Set it to %1</source>
        <translation>Задать %1</translation>
    </message>
    <message>
        <source>There are %1 more of this kind.</source>
        <translation>Ещё таких: %1.</translation>
    </message>
    <message>
        <source> could not be unwrapped.</source>
        <translation> не удалось распаковать.</translation>
    </message>
    <message>
        <source>This gfxboot&apos;s engine does not know %1 and %2: the place cannot be stored</source>
        <translation>Движок этого gfxboot не знает %1 и %2: место сохранить нельзя</translation>
    </message>
    <message>
        <source>text colour of %1</source>
        <translation>цвет текста: %1</translation>
    </message>
    <message>
        <source>Save to stick</source>
        <translation>Запись на флеш-диск</translation>
    </message>
    <message>
        <source>No loader on this drive says where its message file is.
Looked for were the line &quot;gfxboot&quot; of syslinux.cfg (or isolinux.cfg,
extlinux.conf) and the line &quot;gfxmenu&quot; of menu.lst.</source>
        <translation>Ни один загрузчик на этом диске не указывает, где его файл message.
Искались строка «gfxboot» в syslinux.cfg (или isolinux.cfg,
extlinux.conf) и строка «gfxmenu» в menu.lst.</translation>
    </message>
    <message>
        <source>Replace the message file on this drive?
The old one stays beside it, with the ending &quot;.old&quot;.</source>
        <translation>Заменить файл message на этом диске?
Старый останется рядом, с окончанием «.old».</translation>
    </message>
    <message>
        <source>%1, named in %2</source>
        <translation>%1, назван в %2</translation>
    </message>
    <message>
        <source>Choose the stick in the menu Flash first: its loader says where the
message file belongs.</source>
        <translation>Сначала выберите диск в меню «Флеш»: его загрузчик указывает,
где место файла message.</translation>
    </message>
    <message>
        <source>
The old one is kept as %1.</source>
        <translation>
Старый сохранён как %1.</translation>
    </message>
    <message>
        <source>Saved as %1.</source>
        <translation>Сохранено как %1.</translation>
    </message>
    <message>
        <source>Image file as Current Flash</source>
        <translation>Файл образа как текущий флеш-диск</translation>
    </message>
    <message>
        <source>Disk images|*.img;*.ima;*.raw;*.dd;*.bin|All files|*|</source>
        <translation>Образы дисков|*.img;*.ima;*.raw;*.dd;*.bin|Все файлы|*|</translation>
    </message>
    <message>
        <source>Switch off</source>
        <translation>Выключить</translation>
    </message>
    <message>
        <source>Shift+click marks all up to the cell that was clicked before</source>
        <translation>Shift+щелчок отмечает всё до клетки предыдущего щелчка</translation>
    </message>
    <message>
        <source>Letters or codes, such as 0x41-0x5A or a-z</source>
        <translation>Буквы или коды, например 0x41-0x5A или а-я</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Добавить</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Убрать</translation>
    </message>
    <message>
        <source>= %1 pixels on the screen</source>
        <translation>= %1 пикс. на экране</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Имя</translation>
    </message>
    <message>
        <source>Problems: %1</source>
        <translation>Проблемы: %1</translation>
    </message>
    <message>
        <source>mending of %1</source>
        <translation>исправление: %1</translation>
    </message>
    <message>
        <source>errors</source>
        <translation>ошибок</translation>
    </message>
    <message>
        <source>warnings</source>
        <translation>предупреждений</translation>
    </message>
    <message>
        <source>notes</source>
        <translation>замечаний</translation>
    </message>
    <message>
        <source>No problem found</source>
        <translation>Проблем не найдено</translation>
    </message>
    <message>
        <source>Problem</source>
        <translation>Проблема</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Где</translation>
    </message>
    <message>
        <source>Mend</source>
        <translation>Исправление</translation>
    </message>
    <message>
        <source>Space; Ctrl+Z takes it back</source>
        <translation>Пробел; Ctrl+Z возвращает</translation>
    </message>
    <message>
        <source>Nothing keeps this boot screen from being as it was meant.</source>
        <translation>Ничто не мешает этому экрану загрузки быть таким, как задумано.</translation>
    </message>
    <message>
        <source>A click on a problem goes to where it is.</source>
        <translation>Щелчок по проблеме ведёт к её месту.</translation>
    </message>
    <message>
        <source>%1x%2, Scale=%3%</source>
        <translation>%1x%2, Масштаб=%3%</translation>
    </message>
    <message>
        <source>Save to stick...</source>
        <translation>Записать на флеш-диск...</translation>
    </message>
    <message>
        <source>Problems</source>
        <translation>Проблемы</translation>
    </message>
    <message>
        <source>Snap while dragging (not with Alt)</source>
        <translation>Прилипание при перетаскивании (кроме Alt)</translation>
    </message>
    <message>
        <source>Names of parameters</source>
        <translation>Имена параметров</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Увеличить</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Уменьшить</translation>
    </message>
    <message>
        <source>Window follows the picture</source>
        <translation>Окно следует за картинкой</translation>
    </message>
    <message>
        <source>Image file as Current Flash...</source>
        <translation>Файл образа как текущий флеш-диск...</translation>
    </message>
    <message>
        <source>On which monitor will the screen of %1 x %2 be shown?
All backgrounds and logos are stretched vertically for it; what a background
loses above and below is cut off. Undo brings them back.</source>
        <translation>На каком мониторе будет показан экран %1 x %2?
Все фоны и логотипы растягиваются для него по вертикали; лишнее сверху и снизу
у фона обрезается. Отмена вернёт их.</translation>
    </message>
    <message>
        <source>The screen is as wide as that monitor: there is nothing to do.</source>
        <translation>Экран так же широк, как этот монитор: делать нечего.</translation>
    </message>
    <message>
        <source>Left, top, width and height of the part to keep, in pixels:</source>
        <translation>Левый край, верх, ширина и высота оставляемой части, в пикселях:</translation>
    </message>
    <message>
        <source>Crop picture</source>
        <translation>Обрезка картинки</translation>
    </message>
    <message>
        <source>%1 is no disk image with a FAT file system.</source>
        <translation>%1 — не образ диска с файловой системой FAT.</translation>
    </message>
    <message>
        <source>Transparent logo</source>
        <translation>Прозрачный логотип</translation>
    </message>
    <message>
        <source>%1 has transparent parts.
Its outline can become the shape of all logos (%2, where half transparent
pixels stay half transparent). Otherwise the present shape stays, and what is
transparent becomes black.</source>
        <translation>В %1 есть прозрачные места.
Его контур может стать формой всех логотипов (%2, где полупрозрачные
пиксели остаются полупрозрачными). Иначе форма не меняется,
а прозрачное становится чёрным.</translation>
    </message>
    <message>
        <source>Take its outline</source>
        <translation>Взять контур</translation>
    </message>
    <message>
        <source>Keep the shape</source>
        <translation>Оставить форму</translation>
    </message>
    <message>
        <source>%1 is %2 x %3 pixels, but %4 x %5 are needed: another shape.</source>
        <translation>%1 — %2 x %3 пикс., а нужно %4 x %5: форма другая.</translation>
    </message>
    <message>
        <source>

Whole screen: every background gets %1 x %2. A boot loader shows only the sizes that
the graphics card knows (VESA modes, such as 800 x 600 or 1024 x 768).</source>
        <translation>

Весь экран: каждый фон получит размер %1 x %2. Загрузчик показывает только размеры,
которые знает видеокарта (режимы VESA, например 800 x 600 или 1024 x 768).</translation>
    </message>
    <message>
        <source>Picture of another shape</source>
        <translation>Картинка другой формы</translation>
    </message>
    <message>
        <source>Open its tab</source>
        <translation>Открыть вкладку</translation>
    </message>
    <message>
        <source>Bring its picture...</source>
        <translation>Взять картинку...</translation>
    </message>
    <message>
        <source>Colour...</source>
        <translation>Цвет...</translation>
    </message>
    <message>
        <source>Colour of the text...</source>
        <translation>Цвет текста...</translation>
    </message>
    <message>
        <source>Switch on</source>
        <translation>Включить</translation>
    </message>
    <message>
        <source>Stretch</source>
        <translation>Растянуть</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Обрезать</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Вписать</translation>
    </message>
    <message>
        <source>Whole screen</source>
        <translation>Весь экран</translation>
    </message>
    <message>
        <source>%1 says that it is made of %2, and its letters are of another face or size.</source>
        <translation>%1 сообщает, что сделан из %2, но его буквы другого начертания или размера.</translation>
    </message>
    <message>
        <source>Make the font again, so that it is shown as it boots.</source>
        <translation>Создайте шрифт заново, чтобы он показывался так, как загрузится.</translation>
    </message>
    <message>
        <source>%1 says %2 points, and its letters have about %3: the distance of the lines follows the first.</source>
        <translation>В %1 указано %2 пт, а его буквы — около %3: расстояние между строками берётся по первому.</translation>
    </message>
    <message>
        <source>Make the font again, in the size that is meant.</source>
        <translation>Создайте шрифт заново в нужном размере.</translation>
    </message>
    <message>
        <source>%1 lies hidden under %2.</source>
        <translation>%1 полностью закрыт объектом %2.</translation>
    </message>
    <message>
        <source>Move one of the two, or switch the hidden one off.</source>
        <translation>Передвиньте один из них или отключите закрытый.</translation>
    </message>
    <message>
        <source>%1 is %2x%3 and the screen becomes %4x%5: the rest of it is not seen.</source>
        <translation>%1 имеет размер %2x%3, а экран будет %4x%5: остальное не видно.</translation>
    </message>
    <message>
        <source>%1 is %2x%3 and the screen becomes %4x%5: the rest stays empty.</source>
        <translation>%1 имеет размер %2x%3, а экран будет %4x%5: остальное останется пустым.</translation>
    </message>
    <message>
        <source>Scale it to the size of a graphics mode, such as 800x600 or 1024x768.</source>
        <translation>Измените размер до графического режима, например 800x600 или 1024x768.</translation>
    </message>
    <message>
        <source>%1 is a boot program and stands before init: it is what boots.</source>
        <translation>%1 — загрузочная программа и стоит перед init: загрузится именно она.</translation>
    </message>
    <message>
        <source>Put init in front of it, or take it out.</source>
        <translation>Поставьте init перед ней или удалите её.</translation>
    </message>
    <message>
        <source>Put init in front</source>
        <translation>Поставить init первым</translation>
    </message>
    <message>
        <source>The archive is %1 MB; above %2 MB syslinux may have no memory left for the boot screen.</source>
        <translation>Архив занимает %1 МБ; свыше %2 МБ у syslinux может не хватить памяти для загрузочного экрана.</translation>
    </message>
    <message>
        <source>Take pictures out, or make them smaller.</source>
        <translation>Удалите картинки или уменьшите их.</translation>
    </message>
    <message>
        <source>The note &quot;%1&quot; is %2 pixels wide, its line %3.</source>
        <translation>Пояснение «%1» шириной %2 точек, а его строка — %3.</translation>
    </message>
    <message>
        <source>Shorten the note, or widen the information line.</source>
        <translation>Сократите пояснение или расширьте информационную строку.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; of the title &quot;%2&quot; sets no parameter.</source>
        <translation>«%1» в заголовке «%2» не задаёт параметра.</translation>
    </message>
    <message>
        <source>Write &quot; :NUMBER=VALUE&quot; with a number from 1 to 99.</source>
        <translation>Напишите « :НОМЕР=ЗНАЧЕНИЕ» с номером от 1 до 99.</translation>
    </message>
    <message>
        <source>The menu has %1 titles and lacks the %2 technical ones at its end: all its titles are shown, those with values too.</source>
        <translation>В меню заголовков: %1, технических в конце (%2) нет: показываются все, в том числе со значениями.</translation>
    </message>
    <message>
        <source>Add the technical titles, or lower s.menu.zuk.entries.</source>
        <translation>Добавьте технические заголовки или уменьшите s.menu.zuk.entries.</translation>
    </message>
    <message>
        <source>The last %1 titles count as technical and are not shown: &quot;%2&quot; is one of them.</source>
        <translation>Последние заголовки (%1) считаются техническими и не показываются, среди них «%2».</translation>
    </message>
    <message>
        <source>Shorten the text, or give it a smaller font.</source>
        <translation>Сократите текст или возьмите шрифт поменьше.</translation>
    </message>
    <message>
        <source>The help has %1 lines and its panel holds %2.</source>
        <translation>В справке строк: %1, а в панель помещается %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; of the help is wider than its panel.</source>
        <translation>«%1» в справке шире своей панели.</translation>
    </message>
    <message>
        <source>%1 is switched off, so its value %2 does not count.</source>
        <translation>%1 отключён, поэтому его значение %2 не действует.</translation>
    </message>
    <message>
        <source>Switch it on if it is meant.</source>
        <translation>Включите, если это нужно.</translation>
    </message>
    <message>
        <source>Switch it on</source>
        <translation>Включить</translation>
    </message>
    <message>
        <source>The user&apos;s guide is missing: </source>
        <translation>Нет руководства: </translation>
    </message>
    <message>
        <source>Contents of the guide</source>
        <translation>Содержание руководства</translation>
    </message>
    <message>
        <source>Page of the guide</source>
        <translation>Страница руководства</translation>
    </message>
    <message>
        <source>User&apos;s guide</source>
        <translation>Руководство</translation>
    </message>
    <message>
        <source>Back (Alt+Left)</source>
        <translation>Назад (Alt+Влево)</translation>
    </message>
    <message>
        <source>Forward (Alt+Right)</source>
        <translation>Вперёд (Alt+Вправо)</translation>
    </message>
    <message>
        <source>Search in the guide (Ctrl+F, then Enter or F3)</source>
        <translation>Поиск в руководстве (Ctrl+F, затем Enter или F3)</translation>
    </message>
    <message>
        <source>Not in the guide</source>
        <translation>В руководстве этого нет</translation>
    </message>
    <message>
        <source>Compiled at</source>
        <translation>собрана</translation>
    </message>
    <message>
        <source>The menus of this drive are too large to look into all of them.</source>
        <translation>Меню этого диска слишком велики, чтобы заглянуть во все.</translation>
    </message>
</context>
</TS>
