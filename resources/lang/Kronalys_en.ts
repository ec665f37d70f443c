<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ru">
<context>
    <name>Application</name>
    <message>
        <location filename="../../src/app/application.cpp" line="+31"/>
        <source>обращение за пределы данных записи</source>
        <translation>access beyond the data of a record</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>причина неизвестна</source>
        <translation>the cause is unknown</translation>
    </message>
    <message>
        <location line="+36"/>
        <source>Внутренняя ошибка</source>
        <translation>Internal error</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Команда прервана из-за внутренней ошибки: %1.
Записи в таблице сохранены, работу можно продолжать.</source>
        <translation>The command was stopped by an internal error: %1.
The records in the table are intact; you can go on working.</translation>
    </message>
</context>
<context>
    <name>AvarForm</name>
    <message>
        <location filename="../../src/plot/avarform.cpp" line="+52"/>
        <source>Интервал времени измерения, с</source>
        <translation>Averaging time, s</translation>
    </message>
    <message>
        <location line="+13"/>
        <source>Частота, мГц</source>
        <translation>Frequency, mHz</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Спектр частоты, дБн</source>
        <translation>Frequency spectrum, dBc</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Спектр фазы, дБн</source>
        <translation>Phase spectrum, dBc</translation>
    </message>
    <message>
        <location line="+169"/>
        <source>Делить на корень из 2</source>
        <translation>Divide by square root of 2</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Показать значения одного из двух одинаковых генераторов</source>
        <translation>Show the values of one of two equal oscillators</translation>
    </message>
</context>
<context>
    <name>ColumnPage</name>
    <message>
        <location filename="../../src/load/columnpage.ui" line="+16"/>
        <source>Файлы в том порядке, в котором они читаются; сюда можно перетащить файлы</source>
        <translation>The files in the order of reading; files can be dropped here</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>Добавить...</source>
        <translation>Add...</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Добавить файлы в список</source>
        <translation>Add files to the list</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Убрать</source>
        <translation>Remove</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Убрать выбранные файлы из списка</source>
        <translation>Take the selected files off the list</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Прочитать выбранный файл раньше</source>
        <translation>Read the selected file earlier</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Прочитать выбранный файл позже</source>
        <translation>Read the selected file later</translation>
    </message>
    <message>
        <location line="+14"/>
        <source>&amp;Формат:</source>
        <translation>&amp;Format:</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Сохраненные форматы: выбор заполняет поля ниже</source>
        <translation>Saved formats: choosing one fills in the fields below</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Сохранить...</source>
        <translation>Save...</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Сохранить поля ниже как формат с названием</source>
        <translation>Save the fields below as a named format</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Удалить</source>
        <translation>Delete</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Удалить выбранный формат из списка</source>
        <translation>Delete the chosen format from the list</translation>
    </message>
    <message>
        <location line="+18"/>
        <source>&amp;Разделитель:</source>
        <translation>&amp;Separator:</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Чем разделены столбцы</source>
        <translation>What parts the columns</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Пропустить строк:</source>
        <translation>Skip lines:</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Не читать первые строки каждого файла</source>
        <translation>Leave out the first lines of each file</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Сколько первых строк файла не читать</source>
        <translation>How many lines at the head of a file are left out</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Столбцы &amp;данных (с 1):</source>
        <translation>&amp;Data columns (from 1):</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Номера столбцов с данными, считая с 1: 2, 4-6</source>
        <translation>Numbers of the data columns, counted from 1: 2, 4-6</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Столбец &amp;времени (с 1):</source>
        <translation>&amp;Time column (from 1):</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>нет</source>
        <translation>none</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Номер столбца меток времени, считая с 1; без него отсчеты идут через интервал</source>
        <translation>Number of the column of time marks, counted from 1; without it the samples are one interval apart</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Время - число, ед. с:</source>
        <translation>Time: number, unit, s:</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Метки времени - числа</source>
        <translation>The time marks are numbers</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Секунд в единице столбца времени: 1, 60, 3600, 86400</source>
        <translation>Seconds in a unit of the time column: 1, 60, 3600, 86400</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Время - текст вида:</source>
        <translation>Time: text like:</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Метки времени - текст по этому образцу, например hh:mm:ss</source>
        <translation>The time marks are texts of this pattern, as hh:mm:ss</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Образец метки времени: hh - часы, mm - минуты, ss - секунды</source>
        <translation>Pattern of a time mark: hh hours, mm minutes, ss seconds</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Дата в имени файла:</source>
        <translation>Date in file name:</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Дата берется из имени файла; файлы читаются по порядку дат</source>
        <translation>The date comes from the file name; the files are read in the order of their dates</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Образец даты в имени файла: yyyy - год, MM - месяц, dd - день</source>
        <translation>Pattern of the date in the file name: yyyy year, MM month, dd day</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Столбец даты:</source>
        <translation>Date column:</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Дата каждого отсчета стоит в отдельном столбце</source>
        <translation>The date of each sample stands in a column of its own</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Номер столбца даты, считая с 1</source>
        <translation>Number of the date column, counted from 1</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Образец даты</source>
        <translation>Pattern of the date</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Дата и время:</source>
        <translation>Date and time:</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Дата и время каждого отсчета стоят в одном столбце</source>
        <translation>Date and time of each sample stand in one column</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Номер столбца даты и времени, считая с 1</source>
        <translation>Number of the column of date and time, counted from 1</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Образец даты и времени</source>
        <translation>Pattern of date and time</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Начало задано:</source>
        <translation>Start given:</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Время первого отсчета - из поля справа, а не из файла</source>
        <translation>The time of the first sample is that of the field at the right, not of the file</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Дата и время начала; дата нужна, когда ее нет в файле</source>
        <translation>Date and time of the start; the date is needed when the file has none</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Т&amp;ип данных:</source>
        <translation>Data t&amp;ype:</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Что измерено; из частоты суммированием получается фаза</source>
        <translation>What was measured; frequency is summed up to phase</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>&amp;Множитель:</source>
        <translation>&amp;Multiplier:</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>На это число умножается каждое значение: 1 - данные в секундах, 1e-9 - в наносекундах</source>
        <translation>Each value is multiplied by this number: 1 for data in seconds, 1e-9 in nanoseconds</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>И&amp;нтервал, с:</source>
        <translation>I&amp;nterval, s:</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Секунд между отсчетами</source>
        <translation>Seconds between samples</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>Начало первого файла, разобранное по этим полям</source>
        <translation>The head of the first file as these fields cut it</translation>
    </message>
    <message>
        <location filename="../../src/load/columnpage.cpp" line="+59"/>
        <source>Добавьте файлы или перетащите их в это окно:
здесь появится начало первого из них.</source>
        <translation>Add files or drop them on this window:
the head of the first one appears here.</translation>
    </message>
    <message>
        <location line="+63"/>
        <source>Не выбран</source>
        <translation>Not chosen</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>пробел или табуляция</source>
        <translation>blank or tab</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>запятая</source>
        <translation>comma</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>точка с запятой</source>
        <translation>semicolon</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>вертикальная черта</source>
        <translation>vertical bar</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>двойной пробел</source>
        <translation>double blank</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Фаза</source>
        <translation>Phase</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Частота</source>
        <translation>Frequency</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Температура</source>
        <translation>Temperature</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Влажность</source>
        <translation>Humidity</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Параметр</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <location line="+44"/>
        <source>%1 (нет даты в имени)</source>
        <translation>%1 (no date in the name)</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Файл не будет прочитан: в его имени нет даты.</source>
        <translation>The file will not be read: its name has no date.</translation>
    </message>
    <message>
        <location line="+151"/>
        <source>Не выбраны файлы для загрузки!</source>
        <translation>No files to load are chosen!</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Не указан формат для чтения даты из имени файла!</source>
        <translation>The format of the date in the file name is not given!</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Не указан формат для чтения меток времени!</source>
        <translation>The format of the time marks is not given!</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Не указаны единицы измерения для чтения меток времени!</source>
        <translation>The unit of the time marks is not given!</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Не указаны номера столбцов с данными!</source>
        <translation>The numbers of the data columns are not given!</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Ошибка в номерах столбцов с данными: нужны числа от 1 до %1, например 2, 4-6.</source>
        <translation>The numbers of the data columns are wrong: numbers from 1 to %1 are needed, for example 2, 4-6.</translation>
    </message>
</context>
<context>
    <name>ColumnTexts</name>
    <message>
        <location filename="../../src/load/core/columnfile.cpp" line="+344"/>
        <source>Нет файлов для чтения: файлы не выбраны или в их именах нет даты</source>
        <translation>No files to read: none is chosen, or there is no date in their names</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Файл %1 не открывается: %2</source>
        <translation>The file %1 cannot be opened: %2</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Ошибка чтения файла %1: %2</source>
        <translation>Error while reading the file %1: %2</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Не задан разделитель или столбец данных, либо номер столбца недопустим</source>
        <translation>There is no separator or no data column, or a column number is not possible</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Файл %1, строка %2: столбцов меньше, чем требует формат</source>
        <translation>File %1, line %2: fewer columns than the format needs</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Нет отсчётов: в файлах нет строк с данными</source>
        <translation>No samples: the files hold no lines of data</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Нет отсчётов: ни в одной строке не прочитаны и время, и значение; первая такая строка %1 в файле %2</source>
        <translation>No samples: no line has both a time and a value that can be read; the first such line is %1 in the file %2</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Файл %1: отсчётов больше, чем вмещает запись</source>
        <translation>File %1: more samples than a record can hold</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Чтение отменено</source>
        <translation>Reading was cancelled</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Прочитано отсчётов: %1</source>
        <translation>Samples read: %1</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Прочитано отсчётов: %1; строк без отсчёта: %2, первые в файле %3: %4</source>
        <translation>Samples read: %1; lines without a sample: %2, the first ones in the file %3: %4</translation>
    </message>
</context>
<context>
    <name>ConfigFile</name>
    <message>
        <location filename="../../src/load/core/configfile.cpp" line="+401"/>
        <source>Не обычный файл: %1</source>
        <translation>Not a regular file: %1</translation>
    </message>
</context>
<context>
    <name>CrossRows</name>
    <message>
        <location filename="../../src/table/core/crosspair.cpp" line="+144"/>
        <source>Шум компаратора (по каналам </source>
        <translation>Comparator noise (channels </translation>
    </message>
</context>
<context>
    <name>EdtDatetimeDlg</name>
    <message>
        <location filename="../../src/table/edtdatetimedlg.cpp" line="+15"/>
        <source>Время записи</source>
        <translation>Time of the record</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Сдвигается вместе с началом: длина записи не меняется</source>
        <translation>Moves with the start: the length of the record stays</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Начало:</source>
        <translation>Start:</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Конец:</source>
        <translation>Stop:</translation>
    </message>
</context>
<context>
    <name>ExportTable</name>
    <message>
        <location filename="../../src/plot/core/exporttable.cpp" line="+41"/>
        <source>Название</source>
        <translation>Name</translation>
    </message>
</context>
<context>
    <name>FieldText</name>
    <message>
        <location filename="../../src/load/fieldtext.cpp" line="+36"/>
        <source>Ссылка ведет к файлу, которого нет.</source>
        <translation>The link leads to a file that does not exist.</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Файла с таким именем нет.</source>
        <translation>There is no file of this name.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Это каталог. Укажите файл в нем.</source>
        <translation>This is a directory. Give a file in it.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Это не файл данных, а канал, сокет или устройство.</source>
        <translation>This is no data file but a pipe, socket or device.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Нет прав на чтение файла.</source>
        <translation>You may not read this file.</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Каталог не указан.</source>
        <translation>No directory is given.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Каталога с таким именем нет.</source>
        <translation>There is no directory of this name.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Это не каталог.</source>
        <translation>This is not a directory.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Нет прав на чтение каталога.</source>
        <translation>The directory must not be read.</translation>
    </message>
</context>
<context>
    <name>FindBar</name>
    <message>
        <location filename="../../src/help/findbar.cpp" line="+62"/>
        <source>Не найдено</source>
        <translation>Not found</translation>
    </message>
    <message>
        <location line="+26"/>
        <source>На&amp;йти:</source>
        <translation>Fi&amp;nd:</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Текст, который нужно найти на этой странице</source>
        <translation>Text to find on this page</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Предыдущее место (Shift+F3)</source>
        <translation>Previous place (Shift+F3)</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Следующее место (F3)</source>
        <translation>Next place (F3)</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Закрыть строку поиска (Esc)</source>
        <translation>Close the find bar (Esc)</translation>
    </message>
</context>
<context>
    <name>FolderPage</name>
    <message>
        <location filename="../../src/load/folderpage.ui" line="+16"/>
        <source>&amp;Каталог с файлами данных:</source>
        <translation>&amp;Directory of data files:</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Укажите каталог или перетащите его в это окно</source>
        <translation>Give a directory or drop it on this window</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Полный путь к каталогу записей; стрелка вниз показывает прежние каталоги</source>
        <translation>Full path of the directory of recordings; the arrow shows earlier directories</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>О&amp;бзор...</source>
        <translation>&amp;Browse...</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Выбрать каталог</source>
        <translation>Choose a folder</translation>
    </message>
    <message>
        <location line="+19"/>
        <source>С какого дня искать записи</source>
        <translation>The first day to look for recordings</translation>
    </message>
    <message>
        <location line="-8"/>
        <source>&amp;Дни с:</source>
        <translation>&amp;Days from:</translation>
    </message>
    <message>
        <location line="+13"/>
        <source>&amp;по:</source>
        <translation>&amp;to:</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>По какой день искать записи, включительно</source>
        <translation>The last day to look for recordings, inclusive</translation>
    </message>
    <message>
        <location line="+16"/>
        <source>Ка&amp;налы:</source>
        <translation>Cha&amp;nnels:</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>&amp;Выбрать все</source>
        <translation>&amp;Select all</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Выбрать все каналы</source>
        <translation>Select all channels</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Сн&amp;ять все</source>
        <translation>D&amp;eselect all</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Не выбирать ни одного канала</source>
        <translation>Select no channel</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Нажмите на номер канала, чтобы выбрать его или отменить выбор</source>
        <translation>Press the number of a channel to select or deselect it</translation>
    </message>
</context>
<context>
    <name>FormatFileReader</name>
    <message>
        <location filename="../../src/load/core/formatfilewriter.cpp" line="+90"/>
        <source>total number of counts </source>
        <translation>total number of counts </translation>
    </message>
</context>
<context>
    <name>FormatPreview</name>
    <message>
        <location filename="../../src/load/formatpreview.cpp" line="+116"/>
        <source>Файл нельзя прочитать: %1</source>
        <translation>The file cannot be read: %1</translation>
    </message>
    <message>
        <location line="+2"/>
        <location line="+59"/>
        <source>В формате ошибка.</source>
        <translation>The format is at fault.</translation>
    </message>
    <message>
        <location line="-59"/>
        <source>Файл пуст.</source>
        <translation>The file is empty.</translation>
    </message>
    <message>
        <location line="+64"/>
        <source>время</source>
        <translation>time</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>дата</source>
        <translation>date</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>данные</source>
        <translation>data</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>! ошибки: %1</source>
        <translation>! faults: %1</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Годных строк: %1</source>
        <extracomment>lines that fit the format, among those shown</extracomment>
        <translation>Good lines: %1</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Показано начало файла</source>
        <translation>The head of the file is shown</translation>
    </message>
</context>
<context>
    <name>FormatVerdict</name>
    <message>
        <location filename="../../src/load/core/formatcheck.cpp" line="+92"/>
        <source>табуляция</source>
        <translation>tab</translation>
    </message>
    <message>
        <location line="+138"/>
        <source>Введите шаблон.</source>
        <translation>Enter a template.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>В шаблоне нет ни одного поля в скобках.</source>
        <translation>The template has no field in brackets.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Каждая скобка должна быть закрыта, вложенных скобок быть не должно.</source>
        <translation>Every bracket must be closed, and none may stand inside another.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>В поле %1 после знака подчеркивания должно стоять целое число.</source>
        <translation>In the field %1 a whole number must follow the underscore.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Имя в поле %1 должно начинаться с буквы или цифры.</source>
        <translation>The name in the field %1 must begin with a letter or a digit.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Буквы и цифры допустимы только в скобках: «%1», позиция %2.</source>
        <translation>Letters and digits are allowed in brackets only: “%1”, position %2.</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Этот символ допустим только в скобках: «%1», позиция %2.</source>
        <translation>This character is allowed in brackets only: “%1”, position %2.</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>В шаблоне больше %1 полей [имя].</source>
        <translation>The template has more than %1 fields [name].</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>В шаблоне больше %1 полей &lt;имя&gt;.</source>
        <translation>The template has more than %1 fields &lt;name&gt;.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>В шаблоне нет столбца данных: загружать будет нечего.</source>
        <translation>The template has no data column: there will be nothing to load.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>За полем %1 сразу идет другое поле: нет символа, на котором оно кончается.</source>
        <translation>Another field follows %1 at once: there is no character at which it ends.</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Ширина поля %1 будет прочитана как %2.</source>
        <translation>The width of the field %1 will be read as %2.</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Ширина в поле %1 не действует: оно кончается на следующем символе шаблона.</source>
        <translation>The width in the field %1 has no effect: the field ends at the next character of the template.</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Чтобы задать ширину, пишите %1.</source>
        <translation>To set a width, write %1.</translation>
    </message>
</context>
<context>
    <name>FrGrSetDlg</name>
    <message>
        <location filename="../../src/plot/frgrsetdlg.ui" line="+5"/>
        <source>Диалог настройки</source>
        <translation>Settings dialog</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Выбор интервала измерения</source>
        <translation>Choice of the measurement interval</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Интервал</source>
        <translation>Interval</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Целое число секунд, до 10000</source>
        <translation>Whole seconds, up to 10000</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>с</source>
        <translation>s</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Задать</source>
        <translation>Set</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Принять интервал и закрыть окно</source>
        <translation>Take the interval and close the window</translation>
    </message>
    <message>
        <location filename="../../src/plot/frgrsetdlg.cpp" line="+46"/>
        <source>Значение не может быть больше 1000</source>
        <translation>The value must not exceed 1000</translation>
    </message>
</context>
<context>
    <name>GrafOptions</name>
    <message>
        <location filename="../../src/plot/grafoptions.ui" line="+5"/>
        <source>Свойства графика</source>
        <translation>Graph properties</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Кривая, свойства которой показаны</source>
        <translation>The curve whose properties are shown</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Удалить</source>
        <translation>Delete</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Убрать кривую с графика; вернуть её можно флажком в легенде</source>
        <translation>Take the curve off the graph; its check box in the legend brings it back</translation>
    </message>
    <message>
        <location line="+15"/>
        <source>Название данного графика</source>
        <translation>Title of this graph</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Имя кривой в легенде</source>
        <translation>Name of the curve in the legend</translation>
    </message>
    <message>
        <location line="+9"/>
        <location line="+7"/>
        <source>Цвет линии</source>
        <translation>Line colour</translation>
    </message>
    <message>
        <location line="-1"/>
        <source>Выбрать цвет линии и маркеров</source>
        <translation>Choose the colour of line and markers</translation>
    </message>
    <message>
        <location line="+9"/>
        <source>Показать линию</source>
        <translation>Show line</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Соединить точки линией</source>
        <translation>Join the points with a line</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>толщина линии</source>
        <translation>line width</translation>
    </message>
    <message>
        <location line="+6"/>
        <location line="+23"/>
        <source>В точках экрана</source>
        <translation>In pixels of the screen</translation>
    </message>
    <message>
        <location line="-18"/>
        <source>Показать маркер</source>
        <translation>Show marker</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Отметить каждую точку значком</source>
        <translation>Mark every point with a symbol</translation>
    </message>
    <message>
        <location line="+5"/>
        <location line="+1"/>
        <source>Вид маркера</source>
        <translation>Kind of marker</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>размер маркера</source>
        <translation>marker size</translation>
    </message>
    <message>
        <location line="+11"/>
        <source>Показать среднее</source>
        <translation>Show average</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Провести линию среднего и показать его значение</source>
        <translation>Draw a line at the average and show its value</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Вычесть среднее</source>
        <translation>Subtract average</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Показать кривую за вычетом её среднего</source>
        <translation>Show the curve less its average</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Показать тренд</source>
        <translation>Show trend</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Провести прямую по методу наименьших квадратов и показать её наклон за один шаг</source>
        <translation>Draw the least-squares line and show its slope per step</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Показать ADEV</source>
        <translation>Show ADEV</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Показать девиацию Аллана для участка между маркерами</source>
        <translation>Show the Allan deviation of the stretch between the markers</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>между маркерами X1 и X2</source>
        <translation>between markers X1 and X2</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Настройки поля</source>
        <translation>Field settings</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Показать сетку</source>
        <translation>Show grid</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Показать линии сетки на поле графика</source>
        <translation>Show grid lines on the field of the graph</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Интервалы по осям</source>
        <translation>Axis intervals</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Ось</source>
        <translation>Axis</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Ось, пределы которой задаются</source>
        <translation>The axis whose limits are set</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Значения</source>
        <translation>Values</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Нижний предел оси</source>
        <translation>Lower limit of the axis</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>Верхний предел оси</source>
        <translation>Upper limit of the axis</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Время</source>
        <translation>Time</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>С этого момента показывать данные</source>
        <translation>Show data from this moment on</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>До этого момента показывать данные</source>
        <translation>Show data up to this moment</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Задать</source>
        <translation>Set</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Показать график в этих пределах</source>
        <translation>Show the graph within these limits</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Сброс</source>
        <translation>Reset</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Показать все данные выбранной оси</source>
        <translation>Show all data of the chosen axis</translation>
    </message>
    <message>
        <location line="+17"/>
        <source>Применить и закрыть окно</source>
        <translation>Apply and close the window</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Применить</source>
        <translation>Apply</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Применить к выбранной кривой</source>
        <translation>Apply to the chosen curve</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Закрыть окно без изменений</source>
        <translation>Close the window without changes</translation>
    </message>
    <message>
        <location filename="../../src/plot/grafoptions.cpp" line="+30"/>
        <source>Круг</source>
        <translation>Circle</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Квадрат</source>
        <translation>Square</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Ромб</source>
        <translation>Diamond</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Треугольник</source>
        <translation>Triangle</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Треугольник вниз</source>
        <translation>Triangle down</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Треугольник вверх</source>
        <translation>Triangle up</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Треугольник влево</source>
        <translation>Triangle left</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Треугольник вправо</source>
        <translation>Triangle right</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Крест</source>
        <translation>Cross</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Косой крест</source>
        <translation>Diagonal cross</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Горизонтальная черта</source>
        <translation>Horizontal bar</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Вертикальная черта</source>
        <translation>Vertical bar</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Звезда</source>
        <translation>Star</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Звезда, 6 лучей</source>
        <translation>Star, 6 points</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Шестиугольник</source>
        <translation>Hexagon</translation>
    </message>
    <message>
        <location line="+52"/>
        <location line="+28"/>
        <source>График</source>
        <translation>Graph</translation>
    </message>
</context>
<context>
    <name>HelpContents</name>
    <message>
        <location filename="../../src/help/helpcontents.cpp" line="+157"/>
        <source>Ничего не найдено</source>
        <translation>Nothing found</translation>
    </message>
    <message>
        <location line="+33"/>
        <source>Указатель</source>
        <translation>Index</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>Страницы</source>
        <translation>Pages</translation>
    </message>
    <message>
        <location line="+48"/>
        <source>Поиск в справке</source>
        <translation>Search the help</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Слова для поиска в указателе и на страницах справки (Ctrl+K)</source>
        <translation>Words to look for in the index and on the pages of the help (Ctrl+K)</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Содержание справки</source>
        <translation>Contents of the help</translation>
    </message>
</context>
<context>
    <name>HelpForm</name>
    <message>
        <location filename="../../src/help/helpform.cpp" line="+210"/>
        <source>Справка</source>
        <translation>Help</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Назад</source>
        <translation>Back</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>К предыдущей странице</source>
        <translation>To the previous page</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Вперёд</source>
        <translation>Forward</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>К следующей странице</source>
        <translation>To the next page</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Начало</source>
        <translation>Home</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>К началу справки</source>
        <translation>To the start of the help</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Найти</source>
        <translation>Find</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Найти текст на этой странице</source>
        <translation>Find text on this page</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>А+</source>
        <translation>A+</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Крупнее</source>
        <translation>Larger text</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>А−</source>
        <translation>A−</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Мельче</source>
        <translation>Smaller text</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>100%</source>
        <translation>100%</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Обычный размер текста</source>
        <translation>Normal text size</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Печать</source>
        <translation>Print</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Напечатать эту страницу</source>
        <translation>Print this page</translation>
    </message>
</context>
<context>
    <name>InsPlotComment</name>
    <message>
        <location filename="../../src/plot/insplotcomment.ui" line="+6"/>
        <source>Вставить комментарий на график</source>
        <translation>Insert a comment on the graph</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Комментарий можно перетащить мышью; правая кнопка исправляет или удаляет его</source>
        <translation>A comment can be dragged with the mouse; the right button corrects or deletes it</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Текст комментария; Ctrl+Enter вставляет его на график</source>
        <translation>Text of the comment; Ctrl+Enter puts it on the graph</translation>
    </message>
    <message>
        <location line="+9"/>
        <source>Очистить</source>
        <translation>Clear</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Стереть набранный текст</source>
        <translation>Erase the text typed</translation>
    </message>
</context>
<context>
    <name>KdecLoadDlg</name>
    <message>
        <location filename="../../src/store/kdecloaddlg.ui" line="+5"/>
        <source>Диалог настройки</source>
        <translation>Settings dialog</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Коэффициент прореживания</source>
        <translation>Decimation factor</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Из стольких отсчетов подряд загружается один</source>
        <translation>One sample out of this many in a row is loaded</translation>
    </message>
    <message>
        <location line="+18"/>
        <source>Загрузить</source>
        <translation>Load</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Загрузить выбранные записи с прореживанием</source>
        <translation>Load the selected recordings decimated</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Закрыть окно без загрузки</source>
        <translation>Close the window without loading</translation>
    </message>
</context>
<context>
    <name>LineSource</name>
    <message>
        <location filename="../../src/load/core/linesource.cpp" line="+25"/>
        <source>это каталог, а не файл</source>
        <translation>this is a directory, not a file</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>это не файл данных, а канал, сокет или устройство</source>
        <translation>this is no data file but a pipe, a socket or a device</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <location filename="../../src/app/mainwindow.cpp" line="+82"/>
        <location filename="../../src/base/globals.cpp" line="+9"/>
        <source>фаза</source>
        <translation>phase</translation>
    </message>
    <message>
        <location line="+1"/>
        <location filename="../../src/base/globals.cpp" line="+1"/>
        <source>температура</source>
        <translation>temperature</translation>
    </message>
    <message>
        <location line="+1"/>
        <location filename="../../src/base/globals.cpp" line="+1"/>
        <source>влажность</source>
        <translation>humidity</translation>
    </message>
    <message>
        <location line="+1"/>
        <location filename="../../src/base/globals.cpp" line="+1"/>
        <source>параметр</source>
        <translation>parameter</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Программа обработки данных измерений. 

ver </source>
        <translation>Program for processing measurement data. 

ver </translation>
    </message>
    <message>
        <location line="+1"/>
        <source>
Рабочее место метролога времени и частоты</source>
        <translation>
Workstation for time and frequency metrology</translation>
    </message>
    <message>
        <location line="+121"/>
        <source>Файл не найден:
%1</source>
        <translation>File not found:
%1</translation>
    </message>
    <message>
        <location line="+17"/>
        <source>Записей нет. Чтобы загрузить файл измерений, нажмите Ctrl+O.</source>
        <translation>No records. Press Ctrl+O to load a measurement file.</translation>
    </message>
    <message>
        <location line="+23"/>
        <source>Идёт обработка. Закрыть программу можно после её окончания.</source>
        <translation>Processing is under way. The program can be closed when it has ended.</translation>
    </message>
    <message>
        <location filename="../../src/app/mainwindow.ui" line="+19"/>
        <source>&amp;Файл</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>&amp;Недавно открытые записи</source>
        <translation>&amp;Recent Records</translation>
    </message>
    <message>
        <location line="+26"/>
        <source>&amp;Окно</source>
        <translation>&amp;Window</translation>
    </message>
    <message>
        <location line="+15"/>
        <source>&amp;Язык</source>
        <translation>&amp;Language</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>&amp;Справка</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <location line="+20"/>
        <source>&amp;Добавить запись...</source>
        <translation>&amp;Add a record...</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Загрузить запись измерений из файла</source>
        <translation>Load a measurement record from a file</translation>
    </message>
    <message>
        <location line="+13"/>
        <source>&amp;Сохранить записи...</source>
        <translation>&amp;Save Records...</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Сохранить отмеченные записи в файлы формата компаратора</source>
        <translation>Save the checked records as files of the comparator&apos;s format</translation>
    </message>
    <message>
        <location line="+13"/>
        <source>&amp;Параметры...</source>
        <translation>O&amp;ptions...</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Настроить загрузку, обработку и связь</source>
        <translation>Set up loading, processing and the connection</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>&amp;Содержание</source>
        <translation>&amp;Contents</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Открыть справку</source>
        <translation>Open the help</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>С&amp;правка по окну</source>
        <translation>Help on this &amp;Window</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Открыть страницу справки об активном окне</source>
        <translation>Open the help page on the active window</translation>
    </message>
    <message>
        <location line="+13"/>
        <source>В&amp;ыход</source>
        <translation>E&amp;xit</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Закончить работу с программой</source>
        <translation>Leave the program</translation>
    </message>
    <message>
        <location line="+63"/>
        <source>&amp;Показать все окна</source>
        <translation>&amp;Show all windows</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Показать таблицу записей и развернуть свёрнутые окна</source>
        <translation>Show the record table and open minimised windows</translation>
    </message>
    <message>
        <location line="+13"/>
        <source>&amp;Каскадом</source>
        <translation>&amp;Cascade</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Расположить окна каскадом</source>
        <translation>Arrange the windows in a cascade</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>&amp;Упорядочить</source>
        <translation>&amp;Arrange</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Таблица записей сверху, графики и таблицы рядом под ней</source>
        <translation>The record table above, graphs and tables side by side below it</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Графики &amp;мозаикой</source>
        <translation>Tile &amp;graphs</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Свернуть таблицу записей и расположить рядом окна графиков и таблиц</source>
        <translation>Minimise the record table and put the graph and table windows side by side</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>&amp;Свернуть графики</source>
        <translation>&amp;Minimise graphs</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Свернуть все окна графиков и таблиц</source>
        <translation>Minimise all graph and table windows</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>&amp;Восстановить графики</source>
        <translation>&amp;Restore graphs</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Восстановить свёрнутые окна графиков и таблиц</source>
        <translation>Bring minimised graph and table windows back</translation>
    </message>
    <message>
        <location line="+13"/>
        <source>&amp;Закрыть графики</source>
        <translation>C&amp;lose graphs</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Закрыть все окна графиков и таблиц</source>
        <translation>Close all graph and table windows</translation>
    </message>
    <message>
        <location line="+14"/>
        <source>Русский язык интерфейса</source>
        <translation>Interface in Russian</translation>
    </message>
    <message>
        <location line="+11"/>
        <source>Английский язык интерфейса</source>
        <translation>Interface in English</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>&amp;О программе</source>
        <translation>&amp;About</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Показать версию программы</source>
        <translation>Show the version of the program</translation>
    </message>
    <message>
        <location filename="../../src/app/mainwindow_help.cpp" line="+85"/>
        <source> Отсутствует файл справки (ENG) \doc\KronalysHelp_english.qhc,
файл будет создан автоматически,
часть справочной информации может быть недоступна</source>
        <translation> The help file (ENG) \doc\KronalysHelp_english.qhc is missing,
it will be made automatically,
part of the help may not be available</translation>
    </message>
    <message>
        <location line="+2"/>
        <source> Отсутствует файл справки \doc\KronalysHelp.qhc,
файл будет создан автоматически,
часть справочной информации может быть недоступна</source>
        <translation> The help file \doc\KronalysHelp.qhc is missing,
it will be made automatically,
part of the help may not be available</translation>
    </message>
    <message>
        <location filename="../../src/app/mainwindow_recent.cpp" line="+60"/>
        <source>Недавно открытая запись не найдена: %1</source>
        <translation>A recent record was not found: %1</translation>
    </message>
    <message>
        <location line="+42"/>
        <source>%1: с %2 по %3, отсчётов: %4</source>
        <translation>%1: %2 to %3, samples: %4</translation>
    </message>
</context>
<context>
    <name>Memory</name>
    <message>
        <location filename="../../src/prompt/guard.cpp" line="+13"/>
        <source>Недостаточно оперативной памяти.
Попробуйте уменьшить количество загруженных записей,уменьшить количество
обрабатываемых записей, загрузить записи на меньшем интервале времени,
закрыть лишние графики.</source>
        <translation>Not enough memory.
Try to load fewer records, to process fewer records,
to load records over a shorter interval of time,
or to close graphs you do not need.</translation>
    </message>
</context>
<context>
    <name>OpenFileGlobForm</name>
    <message>
        <location filename="../../src/load/openfileglobform.ui" line="+5"/>
        <source>Загрузка данных</source>
        <translation>Load data</translation>
    </message>
    <message>
        <location line="+26"/>
        <source>Из файла</source>
        <translation>From file</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Данные из текстового файла</source>
        <translation>Data from a text file</translation>
    </message>
    <message>
        <location line="+18"/>
        <source>Недавно открытые записи:</source>
        <translation>Recently opened records:</translation>
    </message>
    <message>
        <location line="+34"/>
        <source>Формат 1</source>
        <translation>Format 1</translation>
    </message>
    <message>
        <location line="+13"/>
        <source>Укажите файл или перетащите его в это окно</source>
        <translation>Choose a file or drop it here</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Полный путь к файлу данных; стрелка вниз показывает прежние файлы</source>
        <translation>Full path of the data file; the down arrow shows earlier files</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>О&amp;бзор...</source>
        <translation>&amp;Browse...</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Выбрать файл данных</source>
        <translation>Choose the data file</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Открыть файл в блокноте</source>
        <translation>Open the file in a text editor</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Показать содержимое файла в программе просмотра текста</source>
        <translation>Show the content of the file in a text editor</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>Выбрать &amp;тип файла:</source>
        <translation>File &amp;type:</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Тип определяется по содержимому файла; выбор типа подставляет его шаблон</source>
        <translation>The type is guessed from the content of the file; choosing a type fills in its template</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>&amp;Шаблон строки:</source>
        <translation>&amp;Line template:</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Как читается строка файла: [t] - столбец времени, [имя] - столбец данных, &lt;имя&gt; - пропуск</source>
        <translation>How a line of the file is read: [t] is the time column, [name] a data column, &lt;name&gt; is skipped</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>&amp;Добавить...</source>
        <translation>&amp;Add...</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Составить свой шаблон; разбор файла показан ниже</source>
        <translation>Make a template of your own; what it makes of the file is shown below</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Из&amp;менить...</source>
        <translation>&amp;Edit...</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Изменить выбранный шаблон</source>
        <translation>Edit the chosen template</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>&amp;Удалить</source>
        <translation>&amp;Delete</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Удалить выбранный шаблон из списка</source>
        <translation>Remove the chosen template from the list</translation>
    </message>
    <message>
        <location line="+23"/>
        <source>Применить</source>
        <translation>Apply</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Взять тип и шаблон, найденные по содержимому файла</source>
        <translation>Take the type and template found from the content of the file</translation>
    </message>
    <message>
        <location line="+17"/>
        <source>Параметры записи</source>
        <translation>Record parameters</translation>
    </message>
    <message>
        <location line="+9"/>
        <source>&amp;Начало измерений:</source>
        <translation>&amp;Start of measurement:</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Дата и время первого отсчета</source>
        <translation>Date and time of the first sample</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>&amp;Интервал, с:</source>
        <translation>&amp;Interval, s:</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>Мно&amp;житель, с:</source>
        <translation>Multi&amp;plier, s:</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Значения × множитель = секунды: 1 - данные в секундах, 1e-6 - в микросекундах, 1e-9 - в наносекундах</source>
        <translation>Values × multiplier = seconds: 1 for data in seconds, 1e-6 in microseconds, 1e-9 in nanoseconds</translation>
    </message>
    <message>
        <location line="+17"/>
        <source>Изм&amp;еряемый сигнал:</source>
        <translation>Meas&amp;ured signal:</translation>
    </message>
    <message>
        <location line="-29"/>
        <source>Секунд в единице столбца времени; без столбца времени - секунд между строками</source>
        <translation>Seconds in a unit of the time column; without a time column, seconds between lines</translation>
    </message>
    <message>
        <location line="-198"/>
        <source>Из каталога</source>
        <translation>From directory</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Записи многоканального компаратора из каталога</source>
        <translation>Recordings of a multi-channel comparator from a directory</translation>
    </message>
    <message>
        <location line="+9"/>
        <source>Записи, загруженные раньше</source>
        <translation>Records loaded before</translation>
    </message>
    <message>
        <location line="+205"/>
        <source>&amp;Опорный сигнал:</source>
        <translation>&amp;Reference signal:</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Название опорного сигнала</source>
        <translation>Name of the reference signal</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>Название измеряемого сигнала</source>
        <translation>Name of the measured signal</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>&amp;Канал:</source>
        <translation>C&amp;hannel:</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Номер канала, от 1 до 32; следующие столбцы данных получают следующие номера</source>
        <translation>Channel number, 1 to 32; further data columns get the numbers that follow</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Кп&amp;рор:</source>
        <translation>&amp;Kdec:</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Коэффициент прореживания, не меньше 1</source>
        <translation>Decimation coefficient, at least 1</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>&amp;Полоса:</source>
        <translation>Ba&amp;nd:</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Полоса пропускания измерителя, не меньше 1</source>
        <translation>Measurement band, at least 1</translation>
    </message>
    <message>
        <location line="+14"/>
        <source>Начало файла, разобранное по выбранному шаблону</source>
        <translation>The head of the file as the chosen template cuts it</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Формат 2</source>
        <translation>Format 2</translation>
    </message>
    <message>
        <location line="+23"/>
        <source>&amp;График</source>
        <translation>C&amp;hart</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Показать записи каталога на графике</source>
        <translation>Show the recordings of the directory on a chart</translation>
    </message>
    <message>
        <location line="+9"/>
        <source>&amp;Таблица</source>
        <translation>&amp;Table</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Показать записи каталога списком</source>
        <translation>Show the recordings of the directory as a list</translation>
    </message>
    <message>
        <location line="+25"/>
        <source>Отметьте записи для загрузки; двойной щелчок загружает одну запись</source>
        <translation>Check the records to load; a double click loads one record</translation>
    </message>
    <message>
        <location line="+31"/>
        <source>&amp;Стоп</source>
        <translation>St&amp;op</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Прервать чтение файла</source>
        <translation>Stop reading the file</translation>
    </message>
    <message>
        <location line="+12"/>
        <location filename="../../src/load/openfileglobform.cpp" line="+101"/>
        <location line="+21"/>
        <source>Загрузить</source>
        <translation>Load</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>&amp;Закрыть</source>
        <translation>&amp;Close</translation>
    </message>
    <message>
        <location filename="../../src/load/openfileglobform.cpp" line="-47"/>
        <source>Не удалось открыть программу просмотра текста.
%1</source>
        <translation>The text editor could not be started.
%1</translation>
    </message>
    <message>
        <location line="+20"/>
        <source>Загрузка данных измерений из файла.
Для выбора записей следует указать файл данных (ASCII-файлы или файлы программ компаратора *.inf)</source>
        <translation>Loading measurement data from a file.
Choose a data file (ASCII files or files of the comparator programs *.inf)</translation>
    </message>
    <message>
        <location line="+16"/>
        <source>Загрузка данных измерений из каталога.
Для выбора записей следует указать каталог с файлами данных (*.inf, *.dat) </source>
        <translation>Loading measurements from a directory.
To choose recordings, give a directory of data files (*.inf, *.dat) </translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Назад</source>
        <translation>Back</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Недавно открытые записи.
Для загрузки одной или нескольких записей, отметьте необходимые строчки таблицы и нажмите кнопку &quot;Загрузить&quot;  </source>
        <translation>Recently opened records.
To load one or more records, check the wanted rows of the table and press the button &quot;Load&quot;  </translation>
    </message>
    <message>
        <location line="+136"/>
        <location filename="../../src/load/openfileglobform_file.cpp" line="+198"/>
        <source>Выберите формат</source>
        <translation>Choose a format</translation>
    </message>
    <message>
        <location line="+1"/>
        <location filename="../../src/load/openfileglobform_file.cpp" line="-10"/>
        <source>Другой формат</source>
        <translation>Other format</translation>
    </message>
    <message>
        <location line="+100"/>
        <source>В таблице нет места. Не загружены записи:</source>
        <translation>The table is full. These records were not loaded:</translation>
    </message>
    <message>
        <location filename="../../src/load/openfileglobform_file.cpp" line="-107"/>
        <source>Прежние файлы и каталоги</source>
        <translation>Earlier files and directories</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Прежние каталоги</source>
        <translation>Earlier directories</translation>
    </message>
    <message>
        <location line="+71"/>
        <source>Файл похож на %1, шаблон %2</source>
        <translation>The file looks like %1, template %2</translation>
    </message>
    <message>
        <location line="+99"/>
        <source>Удаление шаблона</source>
        <translation>Delete template</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Возможно удаление только пользовательских форматов,
</source>
        <translation>Only user formats can be deleted,
</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>четыре стандартных формата удалить нельзя.
</source>
        <translation>the four standard formats cannot be deleted.
</translation>
    </message>
    <message>
        <location line="+9"/>
        <source>Выбрать файл</source>
        <translation>Choose file</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Текстовые файлы (*.txt *.dat *.csv *.asc);;Записи программ компаратора (*.inf);;Все файлы (*)</source>
        <translation>Text files (*.txt *.dat *.csv *.asc);;Comparator recordings (*.inf);;All files (*)</translation>
    </message>
    <message>
        <location line="+25"/>
        <source>Здесь появится начало файла, разобранное по шаблону.</source>
        <translation>The head of the file as the template cuts it appears here.</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Это файл записи программ компаратора.</source>
        <translation>This is a recording of the comparator programs.</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Шаблон пока не закончен.</source>
        <translation>The template is not complete yet.</translation>
    </message>
    <message>
        <location filename="../../src/load/openfileglobform_columns.cpp" line="+27"/>
        <source>Выбрать файлы</source>
        <translation>Choose files</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Текстовые файлы (*.txt *.dat *.csv *.asc);;Все файлы (*)</source>
        <translation>Text files (*.txt *.dat *.csv *.asc);;All files (*)</translation>
    </message>
    <message>
        <location line="+23"/>
        <source>Сохранение формата</source>
        <translation>Save format</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Введите название</source>
        <translation>Enter a name</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Формат «%1» уже есть. Заменить его?</source>
        <translation>There is a format &quot;%1&quot; already. Replace it?</translation>
    </message>
    <message>
        <location line="+39"/>
        <source>%1, столбец %2</source>
        <translation>%1, column %2</translation>
    </message>
    <message>
        <location filename="../../src/load/openfileglobform.cpp" line="-255"/>
        <location line="+13"/>
        <source>Далее</source>
        <translation>Next</translation>
    </message>
    <message>
        <location filename="../../src/load/openfileglobform_file.cpp" line="+11"/>
        <location filename="../../src/load/openfileglobform_folder.cpp" line="+167"/>
        <location filename="../../src/load/openfileglobform_read.cpp" line="+60"/>
        <source>Файл не выбран
</source>
        <translation>No file is chosen
</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Не найдена программа просмотра текста.</source>
        <translation>No text editor was found.</translation>
    </message>
    <message>
        <location filename="../../src/load/openfileglobform_read.cpp" line="+5"/>
        <location line="+93"/>
        <source>Дата начала измерений введена некорректно
</source>
        <translation>The start date of the measurement is not valid
</translation>
    </message>
    <message>
        <location line="-90"/>
        <source>Номер канала не указан
</source>
        <translation>The channel number is not given
</translation>
    </message>
    <message>
        <location line="+2"/>
        <location line="+86"/>
        <source>Интервал между отсчетами не указан
</source>
        <translation>The interval between samples is not given
</translation>
    </message>
    <message>
        <location line="-84"/>
        <source>Название опорного сигнала не указано
</source>
        <translation>The name of the reference signal is not given
</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Название измеряемого сигнала не указано
</source>
        <translation>The name of the measured signal is not given
</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Kdec не указан
</source>
        <translation>Kdec is not given
</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Полоса пропускания не указана
</source>
        <translation>The band is not given
</translation>
    </message>
    <message>
        <location line="+37"/>
        <source>Несоответствие формата в строке </source>
        <translation>Format mismatch in line </translation>
    </message>
    <message>
        <location filename="../../src/load/openfileglobform.cpp" line="+246"/>
        <location filename="../../src/load/openfileglobform_read.cpp" line="+2"/>
        <source>и т.д.</source>
        <translation>etc.</translation>
    </message>
    <message>
        <location filename="../../src/load/openfileglobform_read.cpp" line="+10"/>
        <source>При чтении файла по шаблону </source>
        <translation>Errors while reading the file by the template </translation>
    </message>
    <message>
        <location line="+0"/>
        <source> возникли ошибки, продолжить?</source>
        <translation>. Continue?</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Запись загружена не полностью: некорректный массив меток времени </source>
        <translation>The record is not loaded completely: the time marks are not correct </translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Время не растет в строке </source>
        <translation>Time does not grow in line </translation>
    </message>
    <message>
        <location line="+9"/>
        <source>Формат чтения файла указан некорректно,
попробуйте открыть файл через окно загрузки данных</source>
        <translation>The format of the file is not right,
try to open the file through the loading window</translation>
    </message>
    <message>
        <location line="+3"/>
        <location filename="../../src/load/openfileglobform_recent.cpp" line="+214"/>
        <source>Не удалось открыть файл
%1
%2</source>
        <translation>The file could not be opened
%1
%2</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Не удалось прочитать файл
%1
%2</source>
        <translation>The file could not be read
%1
%2</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Шаблоном %1 нельзя прочитать файл: в нем ошибка.
Выберите другой шаблон.</source>
        <translation>The template %1 cannot be used to read the file: it has an error.
Choose another template.</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>В шаблоне %1 нет столбца данных.
Выберите другой шаблон.</source>
        <translation>The template %1 has no data column.
Choose another template.</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>В файле слишком много отсчетов для одной записи.</source>
        <translation>The file has too many samples for one record.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>В файле нет данных, соответствующих шаблону %1.
Проверьте файл или выберите другой шаблон.</source>
        <translation>The file has no data that fit the template %1.
Check the file or choose another template.</translation>
    </message>
    <message>
        <location line="+24"/>
        <source>%1, столбец %2, канал %3</source>
        <translation>%1, column %2, channel %3</translation>
    </message>
    <message>
        <location filename="../../src/load/openfileglobform_recent.cpp" line="-160"/>
        <source>Сигналы</source>
        <translation>Signals</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Канал</source>
        <translation>Channel</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Начало</source>
        <translation>Start</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Конец</source>
        <translation>Stop</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Отсчетов</source>
        <translation>Samples</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Файл</source>
        <translation>File</translation>
    </message>
    <message>
        <location line="+40"/>
        <source>Отметьте записи, которые нужно загрузить.</source>
        <translation>Check the records to load.</translation>
    </message>
    <message>
        <location line="+42"/>
        <source>Не загружены отмеченные записи: %1 из %2</source>
        <translation>The checked records were not loaded: %1 of %2</translation>
    </message>
    <message>
        <location filename="../../src/load/openfileglobform_folder.cpp" line="-93"/>
        <source>Выбрать каталог</source>
        <translation>Choose a folder</translation>
    </message>
    <message>
        <location line="+53"/>
        <source>в данный момент выбранный каталог не доступен</source>
        <translation>the chosen folder is not available at the moment</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Первый день позже последнего.</source>
        <translation>The first day is later than the last one.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Не выбран ни один канал.</source>
        <translation>No channel is selected.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Слишком много дней: можно указать не больше %1.</source>
        <translation>Too many days: at most %1 can be given.</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>Вы пытаетесь открыть данные измерений за %1 суток для %2 каналов.
Обработка может занять продолжительное время.
Вы уверены, что даты введены корректно?</source>
        <translation>You are about to open measurements of %1 days for %2 channels.
Processing may take a long time.
Are you sure that the dates are correct?</translation>
    </message>
    <message>
        <location line="+14"/>
        <source>Имя файла записи должно состоять из даты и номера канала: ггММдд_КК.inf</source>
        <translation>The name of a recording&apos;s file must consist of the date and the channel: yyMMdd_CC.inf</translation>
    </message>
    <message>
        <location line="+37"/>
        <source>Чтение каталога прервано.</source>
        <translation>Reading the directory was stopped.</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Во время чтения данных возникли ошибки</source>
        <translation>Errors occurred while reading the data</translation>
    </message>
    <message>
        <location line="+30"/>
        <source>Каталог %1
с %2 по %3</source>
        <translation>Directory %1
from %2 to %3</translation>
    </message>
    <message>
        <location line="+41"/>
        <source>Загрузка записи</source>
        <translation>Loading of a recording</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Больше не показывать</source>
        <translation>Do not show again</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <location line="+14"/>
        <source>. Невозможно открыть файл, возможно запись измерений еще не началась. Повторите попытку позже.</source>
        <translation>. The file cannot be opened, perhaps the recording has not begun yet. Try again later.</translation>
    </message>
    <message>
        <location line="+18"/>
        <source>Не удалось открыть каталог
%1
%2</source>
        <translation>The directory could not be opened
%1
%2</translation>
    </message>
    <message>
        <location line="+15"/>
        <source>Запись не загружена: %1</source>
        <translation>Recording not loaded: %1</translation>
    </message>
</context>
<context>
    <name>OptionsForm</name>
    <message>
        <location filename="../../src/load/optionsform.ui" line="+5"/>
        <source>Режим обработки</source>
        <translation>Processing mode</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Режимы обработки:</source>
        <translation>Processing modes:</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Стандартный</source>
        <translation>Standard</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Каждая запись обрабатывается сама по себе</source>
        <translation>Each record is processed by itself</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Кросс YX*YX</source>
        <translation>Cross YX*YX</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Две записи одной пары сигналов обрабатываются вместе</source>
        <translation>Two records of the same pair of signals are processed together</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Кросс X,Y,Z</source>
        <translation>Cross X,Y,Z</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Вместе обрабатываются записи трёх сигналов</source>
        <translation>Records of three signals are processed together</translation>
    </message>
</context>
<context>
    <name>PhaseForm</name>
    <message>
        <location filename="../../src/plot/phaseform.cpp" line="+32"/>
        <source>Обновлять графики текущих измерений</source>
        <translation>Update graphs of current measurements</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Включено: график следует за новыми данными. Выключено: дни выбираются движком под графиком</source>
        <translation>On: the graph follows new data. Off: days are chosen with the slider below the graph</translation>
    </message>
</context>
<context>
    <name>PlotForm</name>
    <message>
        <location filename="../../src/plot/plotform.cpp" line="+165"/>
        <source>Сохранить</source>
        <translation>Save</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Записать изображение графика в файл</source>
        <translation>Write a picture of the graph to a file</translation>
    </message>
    <message>
        <location line="+2"/>
        <location filename="../../src/plot/plotform_export.cpp" line="+415"/>
        <source>Печать</source>
        <translation>Print</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Напечатать график</source>
        <translation>Print the graph</translation>
    </message>
    <message>
        <location line="+1"/>
        <location filename="../../src/plot/plotform_export.cpp" line="-14"/>
        <source>Предварительный просмотр</source>
        <translation>Print preview</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Показать страницу такой, какой она будет напечатана</source>
        <translation>Show the page as it will be printed</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Копировать изображение</source>
        <translation>Copy image</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Поместить изображение графика в буфер обмена</source>
        <translation>Put a picture of the graph on the clipboard</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Свойства графика</source>
        <translation>Graph properties</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Изменить вид линий и маркеров и границы осей</source>
        <translation>Change the look of lines and markers and the limits of the axes</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Вставить комментарий</source>
        <translation>Insert comment</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Поместить на график текст</source>
        <translation>Put a text on the graph</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Экспорт в ASCII</source>
        <translation>Export to ASCII</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Записать показанные точки таблицей в текстовый файл</source>
        <translation>Write the points shown to a text file as a table</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Отметить двумя нажатиями начало и конец участка</source>
        <translation>Mark the begin and the end of a stretch with two clicks</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Вырезать отмеченный участок показанных записей в новые записи</source>
        <translation>Cut the marked stretch of the records shown into new records</translation>
    </message>
    <message>
        <location line="+11"/>
        <source>Маркер</source>
        <translation>Marker</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Нажмите и тяните по графику, чтобы измерить расстояние между точками</source>
        <translation>Press and drag on the graph to measure the distance between points</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Масштаб</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Обведите область, чтобы увеличить её; правая кнопка возвращает назад</source>
        <translation>Drag around an area to enlarge it; the right button goes back</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Задать интервал времени</source>
        <translation>Set time interval</translation>
    </message>
    <message>
        <location line="+37"/>
        <source>Ось, по которой работают маркеры и масштаб</source>
        <translation>The axis that markers and zoom act on</translation>
    </message>
    <message>
        <location line="-56"/>
        <source>Отметить границы</source>
        <translation>Mark boundaries</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Сохранить как новую запись</source>
        <translation>Save as new record</translation>
    </message>
    <message>
        <location line="+17"/>
        <source>Показать данные между двумя моментами времени</source>
        <translation>Show the data between two moments</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Показать всё</source>
        <translation>Show all</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Отменить все изменения масштаба (двойное нажатие на графике)</source>
        <translation>Undo all zooming (double click on the graph)</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Предыдущий масштаб</source>
        <translation>Previous zoom</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Отменить последнее изменение масштаба</source>
        <translation>Undo the last zoom</translation>
    </message>
    <message>
        <location line="+20"/>
        <source>О&amp;пции</source>
        <translation>&amp;Options</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>&amp;Инструменты</source>
        <translation>&amp;Tools</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>О&amp;бработка</source>
        <translation>&amp;Process</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Ось</source>
        <translation>Axis</translation>
    </message>
    <message>
        <location line="+7"/>
        <location filename="../../src/plot/plotform_options.cpp" line="+65"/>
        <source>Ось #</source>
        <translation>Axis #</translation>
    </message>
    <message>
        <location filename="../../src/plot/plotform_axes.cpp" line="+29"/>
        <source>Разность фаз, с</source>
        <translation>Phase difference, s</translation>
    </message>
    <message>
        <location line="+0"/>
        <location line="+1"/>
        <source>Температура</source>
        <translation>Temperature</translation>
    </message>
    <message>
        <location line="-1"/>
        <location line="+1"/>
        <source>Влажность</source>
        <translation>Humidity</translation>
    </message>
    <message>
        <location line="+0"/>
        <location line="+1"/>
        <source>Параметр</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <location line="-1"/>
        <source>Относительная разность частот</source>
        <translation>Relative frequency difference</translation>
    </message>
    <message>
        <location filename="../../src/plot/plotform_curves.cpp" line="+59"/>
        <source>Среднее</source>
        <translation>Mean</translation>
    </message>
    <message>
        <location line="+2"/>
        <location filename="../../src/plot/plotform_options.cpp" line="+167"/>
        <source>Тренд</source>
        <translation>Trend</translation>
    </message>
    <message>
        <location filename="../../src/plot/plotform_export.cpp" line="-110"/>
        <source>Нет ни одной кривой</source>
        <translation>There is no curve</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Неизвестный формат изображения</source>
        <translation>Unknown picture format</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Это не обычный файл</source>
        <translation>This is not a regular file</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Не удалось построить изображение</source>
        <translation>The picture could not be made</translation>
    </message>
    <message>
        <location line="+12"/>
        <location line="+8"/>
        <location line="+7"/>
        <source>Сохранить график</source>
        <translation>Save graph</translation>
    </message>
    <message>
        <location line="-6"/>
        <source>Файл %1 уже существует. Заменить его?</source>
        <translation>The file %1 exists already. Replace it?</translation>
    </message>
    <message>
        <location line="+7"/>
        <location line="+136"/>
        <source>Не удалось сохранить файл</source>
        <translation>Could not save the file</translation>
    </message>
    <message>
        <location line="-53"/>
        <source>Не удалось напечатать график.</source>
        <translation>The graph could not be printed.</translation>
    </message>
    <message>
        <location line="+45"/>
        <location line="+7"/>
        <source>Сохранить таблицу</source>
        <translation>Save table</translation>
    </message>
    <message>
        <location filename="../../src/plot/plotform_comments.cpp" line="+29"/>
        <source>Редактировать комментарий</source>
        <translation>Edit comment</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Удалить комментарий</source>
        <translation>Delete comment</translation>
    </message>
    <message>
        <location filename="../../src/plot/plotform_options.cpp" line="-1"/>
        <source>Средн.</source>
        <translation>Aver.</translation>
    </message>
</context>
<context>
    <name>PlotZoomDT</name>
    <message>
        <location filename="../../src/plot/plotzoomdt.ui" line="+5"/>
        <source>Показать данные за период...</source>
        <translation>Show data for a period...</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Начало:</source>
        <translation>Start:</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>С этого момента показывать данные</source>
        <translation>Show data from this moment on</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Конец:</source>
        <translation>End:</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>До этого момента показывать данные</source>
        <translation>Show data up to this moment</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>Восстановить</source>
        <translation>Restore</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Показать данные за всё время</source>
        <translation>Show the data of all time</translation>
    </message>
</context>
<context>
    <name>Properties</name>
    <message>
        <location filename="../../src/load/properties.ui" line="+5"/>
        <source>Параметры</source>
        <translation>Options</translation>
    </message>
    <message>
        <location line="+16"/>
        <source>Загрузка и обновление данных</source>
        <translation>Loading and updating data</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Фильтровать повторяющиеся отсчеты фазы
при добавлении записи в таблицу</source>
        <translation>Filter repeated phase samples
when a record is added to the table</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Из каждой новой записи уходят отсчеты, повторяющие предыдущий</source>
        <translation>Samples that repeat the one before are taken out of each new record</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Отображать 16 каналов в окне загрузки данных</source>
        <translation>Show 16 channels in the loading window</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Без флажка окно загрузки показывает 8 каналов</source>
        <translation>When cleared, the loading window shows 8 channels</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Период обновления динамических записей, с</source>
        <translation>Update period of live records, s</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Целое число секунд, до 65535</source>
        <translation>Whole number of seconds, up to 65535</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>База данных CGGTTS:</source>
        <translation>CGGTTS database:</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Каталог с файлом cggtts.dblite</source>
        <translation>Directory of the file cggtts.dblite</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Обзор...</source>
        <translation>Browse...</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Выбрать каталог базы данных</source>
        <translation>Choose the directory of the database</translation>
    </message>
    <message>
        <location line="+14"/>
        <source>Обработка записей</source>
        <translation>Processing of records</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>При вычислении статистических характеристик
использовать не более</source>
        <translation>When statistics are computed,
use no more than</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Целое число; чем оно меньше, тем быстрее обработка</source>
        <translation>Whole number; the smaller it is, the faster the processing</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>отсчетов для каждого tau</source>
        <translation>samples for each tau</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>(при вводе отрицательного значения будет использоваться
весь доступный набор данных)</source>
        <translation>(with a negative value all available
data are used)</translation>
    </message>
    <message>
        <location line="+9"/>
        <source>Кросс-корреляционная обработка</source>
        <translation>Cross-correlation processing</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Поиск совпадающих отрезков
по значениям отметок времени в записях</source>
        <translation>Search for common stretches
by the time marks of the records</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Пару составляют отсчеты, отметки времени которых ближе половины интервала</source>
        <translation>Samples make a pair when their time marks are less than half an interval apart</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Считать моменты измерений одновременными, 
начальные отсчеты совпадающими
в случае если Дата и время старта записей совпадают</source>
        <translation>Take the moments of measurement as simultaneous
and the first samples as common
when the records have the same start date and time</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Пару составляют отсчеты с одним номером; до закрытия программы</source>
        <translation>Samples with the same number make a pair; until the program is closed</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Параметры связи</source>
        <translation>Connection</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Настройки соединения, для подключения 
программы управления компаратором</source>
        <translation>Settings for the connection 
of the comparator&apos;s control program</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Порт</source>
        <translation>Port</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Порт TCP, от 1 до 65535</source>
        <translation>TCP port, from 1 to 65535</translation>
    </message>
    <message>
        <location filename="../../src/load/properties.cpp" line="+61"/>
        <location line="+117"/>
        <source>Восстановить значения по умолчанию</source>
        <translation>Restore defaults</translation>
    </message>
    <message>
        <location line="-116"/>
        <location line="+118"/>
        <source>Вернуть исходные значения всех полей, кроме каталога и кросс-обработки</source>
        <translation>Put the original values back in all fields except the directory and cross processing</translation>
    </message>
    <message>
        <location line="-88"/>
        <source>Такого каталога нет: останется прежний.</source>
        <translation>There is no such directory: the former one will stay.</translation>
    </message>
    <message>
        <location line="+47"/>
        <source>Выбрать каталог с базой данных cggtts.dblite</source>
        <translation>Choose the directory of the database cggtts.dblite</translation>
    </message>
</context>
<context>
    <name>RecordingLoad</name>
    <message>
        <location filename="../../src/store/core/recordingload.cpp" line="+80"/>
        <source>Ошибки чтения данных </source>
        <translation>Errors while reading data </translation>
    </message>
    <message>
        <location line="+1"/>
        <source>%1.dat, смещение %2</source>
        <translation>%1.dat, offset %2</translation>
    </message>
    <message>
        <location line="+19"/>
        <source>и ещё %1</source>
        <translation>and %1 more</translation>
    </message>
    <message>
        <location line="+2"/>
        <location line="+75"/>
        <source>Ошибки чтения данных измерения  </source>
        <translation>Errors while reading the measurement data  </translation>
    </message>
    <message>
        <location line="-68"/>
        <source>В выбранном интервале нет отсчетов.</source>
        <translation>There are no samples in the chosen interval.</translation>
    </message>
    <message>
        <location line="+62"/>
        <source>Ошибки чтения информации о записи  </source>
        <translation>Errors while reading the information on the recording  </translation>
    </message>
    <message>
        <location line="+1"/>
        <source>структура № </source>
        <translation>structure No. </translation>
    </message>
    <message>
        <location line="+6"/>
        <source> файл не открывается!!!</source>
        <translation> cannot be opened!!!</translation>
    </message>
    <message>
        <location line="+40"/>
        <source>Количество отсчетов за </source>
        <translation>The number of samples on </translation>
    </message>
    <message>
        <location line="+1"/>
        <source> в записи измерений в канале №</source>
        <translation> in the recording of channel No. </translation>
    </message>
    <message>
        <location line="+1"/>
        <source>
 меньше ожидаемого. Возможно запись повреждена или произошел
 сбой при сохранении результатов измерений. Запись будет
 загружена, но, возможно, будет отображаться некорректно.</source>
        <translation>
 is lower than expected. The recording may be damaged, or saving the
 results of the measurement may have failed. The recording will
 be loaded, but may be shown incorrectly.</translation>
    </message>
</context>
<context>
    <name>SelRecTable</name>
    <message>
        <location filename="../../src/table/selrectable.ui" line="+6"/>
        <source>Управление записями</source>
        <translation>Record table</translation>
    </message>
    <message>
        <location line="+16"/>
        <source>Добавить запись</source>
        <translation>Add record</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Загрузить запись из файла (Ctrl+O)</source>
        <translation>Load a record from a file (Ctrl+O)</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>Обновить</source>
        <translation>Refresh</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Дочитать отмеченные записи из каталога, из которого они загружены</source>
        <translation>Read on the checked records from the folder they were loaded from</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>Удалить отмеченные</source>
        <translation>Remove checked</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Убрать отмеченные записи из таблицы</source>
        <translation>Take the checked records out of the table</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>Удалить все</source>
        <translation>Remove all</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Убрать из таблицы все записи</source>
        <translation>Take all records out of the table</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>Вычесть записи</source>
        <translation>Subtract</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Новая запись: вторая отмеченная запись минус первая</source>
        <translation>A new record: the second checked one less the first</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>Объединить</source>
        <translation>Merge</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Новая запись из двух отмеченных, которые следуют друг за другом</source>
        <translation>A new record of two checked ones that follow each other</translation>
    </message>
    <message>
        <location line="+31"/>
        <source>Выделить все записи</source>
        <translation>Check all records</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>Снять выделение всех записей</source>
        <translation>Uncheck all records</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>Переместить запись вверх</source>
        <translation>Move the record up</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>Переместить запись вниз</source>
        <translation>Move the record down</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>Поменять местами опорный и измеряемый сигналы</source>
        <translation>Swap the reference and the measured signal</translation>
    </message>
    <message>
        <location line="+35"/>
        <source>Канал</source>
        <translation>Ch.</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Опорный</source>
        <translation>Reference</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Измеряемый</source>
        <translation>Measured</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Кпрор</source>
        <translation>Kdec</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Полоса</source>
        <translation>Band</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Тип данных</source>
        <translation>Data type</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>От</source>
        <translation>From</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>До</source>
        <translation>To</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Max Y</source>
        <translation>Max Y</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Max VarY</source>
        <translation>Max VarY</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>   N</source>
        <translation>   N</translation>
    </message>
    <message>
        <location line="+42"/>
        <location line="+28"/>
        <source>Обработка</source>
        <translation>Process</translation>
    </message>
    <message>
        <location line="-22"/>
        <source>Какие характеристики вычислять</source>
        <translation>What to compute</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Хар-ки нестабильности (СКО, СКДО, девиация Адамара)</source>
        <translation>Frequency stability characteristics (SDEV, ADEV, HDEV)</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>МОВИ, ДВИ</source>
        <translation>MTIE, TDEV</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Хар-ки нестабильности (MDEV, PDEV)</source>
        <translation>Frequency stability characteristics (MDEV, PDEV)</translation>
    </message>
    <message>
        <location line="+11"/>
        <source>Обработать отмеченные записи (F5)</source>
        <translation>Process the checked records (F5)</translation>
    </message>
    <message>
        <location line="+9"/>
        <source>с перекрытиями</source>
        <translation>overlapping</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Использовать все перекрывающиеся интервалы</source>
        <translation>Use all overlapping intervals</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>вычесть дрейф</source>
        <translation>remove drift</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Вычесть из фазы параболу, вписанную по всей записи</source>
        <translation>Take the parabola fitted to the whole record off the phase</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>кросс-обработка</source>
        <translation>cross processing</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Нестабильность общего сигнала двух отмеченных записей</source>
        <translation>Stability of the signal that two checked records have in common</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>метод трёх генераторов</source>
        <translation>three-cornered hat</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Нестабильность каждого из трёх генераторов по двум или трём их записям</source>
        <translation>Stability of each of three clocks from two or three records of them</translation>
    </message>
    <message>
        <location line="+19"/>
        <source>Стоп</source>
        <translation>Stop</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Прервать (Esc); таблица и прежние результаты останутся</source>
        <translation>Stop (Esc); the table and the former results stay</translation>
    </message>
    <message>
        <location line="+9"/>
        <source>Вычисление спектра:</source>
        <translation>Spectrum:</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>вычислять</source>
        <translation>compute</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Вычислять при обработке спектр фазы и спектр частоты</source>
        <translation>Compute the spectra of phase and frequency while processing</translation>
    </message>
    <message>
        <location line="+20"/>
        <source>Частота (МГц)</source>
        <translation>Frequency (MHz)</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>Номинальная частота, к которой относится спектр</source>
        <translation>Nominal frequency that the spectrum refers to</translation>
    </message>
    <message>
        <location line="+18"/>
        <source>Результаты</source>
        <translation>Results</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>Разность фаз</source>
        <translation>Phase difference</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Показать график разности фаз и других данных</source>
        <translation>Show the graph of phase difference and other data</translation>
    </message>
    <message>
        <location line="+21"/>
        <source>Разность частот</source>
        <translation>Frequency difference</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Показать график разности частот; в меню — интервал измерения</source>
        <translation>Show the graph of frequency difference; the menu holds the measurement interval</translation>
    </message>
    <message>
        <location line="+20"/>
        <source>Проредить Min/Max</source>
        <translation>Thin to Min/Max</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Показать наименьшие и наибольшие значения: не более 10000 точек на запись</source>
        <translation>Show the smallest and largest values: at most 10000 points a record</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Час</source>
        <translation>Hour</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Показать часовые значения</source>
        <translation>Show hourly values</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Сутки</source>
        <translation>Day</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Показать суточные значения</source>
        <translation>Show daily values</translation>
    </message>
    <message>
        <location line="+15"/>
        <source>СКДО (ADEV)</source>
        <translation>ADEV</translation>
    </message>
    <message>
        <location line="+3"/>
        <location line="+54"/>
        <source>Показать график</source>
        <translation>Show the graph</translation>
    </message>
    <message>
        <location line="-30"/>
        <source>Девиация Аллана</source>
        <translation>Allan deviation</translation>
    </message>
    <message>
        <location line="+3"/>
        <location line="+54"/>
        <source>Показать таблицу</source>
        <translation>Show the table</translation>
    </message>
    <message>
        <location line="-30"/>
        <location line="+27"/>
        <location filename="../../src/table/selrectable_graphs.cpp" line="+219"/>
        <source>Спектр фазы</source>
        <translation>Phase spectrum</translation>
    </message>
    <message>
        <location line="+21"/>
        <source>Частота/Дрейф</source>
        <translation>Frequency/Drift</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Таблица разностей фаз, частот и дрейфа</source>
        <translation>Table of phase and frequency differences and drift</translation>
    </message>
    <message>
        <location filename="../../src/table/selrectable.cpp" line="+162"/>
        <source>Записей нет.
Нажмите «Добавить запись» и выберите файл измерений,
или перетащите файл сюда.</source>
        <translation>There are no records.
Press &quot;Add record&quot; and choose a measurement file,
or drop a file here.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Сохранить запись в ASCII-файл</source>
        <translation>Save record to ASCII file</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Сохранить запись в файл</source>
        <translation>Save record to file</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Изменить время начала записи</source>
        <translation>Change the start time of the record</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Сохранить обработанную запись, на которой стоит курсор, в текстовый файл</source>
        <translation>Save the processed record of the current row to a text file</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Сохранить запись, на которой стоит курсор, в формате файлов компаратора</source>
        <translation>Save the record of the current row in the comparator&apos;s file format</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Изменить время начала и конца записи</source>
        <translation>Change the start and stop times of the record</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Наибольшее отклонение от медианы за сутки: для фазы — разности частот, для других данных — самого значения.
Большие отклонения при обработке заменяются. 0 — без ограничения, для фазы также 1</source>
        <translation>Largest deviation from the median of the day: of the frequency difference for phase, of the value itself for other data.
Larger deviations are replaced while processing. 0 means no limit, and so does 1 for phase</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>То же для изменения от отсчета к отсчету: для фазы — разности частот, для других данных — скорости</source>
        <translation>The same for the change from sample to sample: of the frequency difference for phase, of the rate for other data</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Пробел — отметить, Ctrl+↑ и Ctrl+↓ — переместить, Del — убрать из таблицы</source>
        <translation>Space checks, Ctrl+↑ and Ctrl+↓ move, Del removes from the table</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Сшивать отсчеты фазы</source>
        <translation>Stitch phase samples</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Сшивать по частоте</source>
        <translation>Stitch by frequency</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>С разрывом по времени</source>
        <translation>Keep the time gap</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Настроить</source>
        <translation>Other...</translation>
    </message>
    <message>
        <location filename="../../src/table/selrectable_graphs.cpp" line="-150"/>
        <source>Собственная форма программы: при малых m её значения ниже, чем у общепринятой
PDEV (на 18, 11 и 4 % при m = 2, 4 и 8 для белого фазового шума)</source>
        <translation>The program&apos;s own form: at small m its values lie below the usual PDEV
(by 18, 11 and 4 % at m = 2, 4 and 8 in white phase noise)</translation>
    </message>
    <message>
        <location line="+81"/>
        <source>Новая запись вырезается только из графика по времени</source>
        <translation>A new record is cut from a graph over time only</translation>
    </message>
    <message>
        <location line="+28"/>
        <source>Таблица вариаций (</source>
        <translation>Table of deviations (</translation>
    </message>
    <message>
        <location line="+42"/>
        <source>Спектр частоты</source>
        <translation>Frequency spectrum</translation>
    </message>
    <message>
        <location line="+51"/>
        <source>Таблица спектр. плотн. мощности</source>
        <translation>Power spectral density table</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Название</source>
        <translation>Name</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>%1 мГц</source>
        <translation>%1 mHz</translation>
    </message>
    <message>
        <location line="+20"/>
        <source>Таблица Частота/Дрейф</source>
        <translation>Table of frequency and drift</translation>
    </message>
    <message>
        <location filename="../../src/table/selrectable_process.cpp" line="+122"/>
        <source>Следующие записи были исключены из обработки:
</source>
        <translation>These records were left out of the processing:
</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Слишком мало точек!</source>
        <translation>Too few points!</translation>
    </message>
    <message>
        <location line="+74"/>
        <source>Применение лимитов на разность частот и изменение разности частот
возможно только для статических записей.
Динамически обновляемые записи будут обработаны без учета лимитов.
Для подробной обработки данных отключите динамическое обновление в таблице Управления записями.</source>
        <translation>Limits on the frequency difference and its change
can be applied to static records only.
Live records will be processed without limits.
Switch live updating off in the record table for detailed processing.</translation>
    </message>
    <message>
        <location line="+46"/>
        <source>Исключение дрейфа доступно только при обработке статических записей.
Для подробной обработки данных отключите динамическое обновление в таблице Управления записями.</source>
        <translation>Drift removal is available for static records only.
To process the data in detail, turn off dynamic updating in the record table.</translation>
    </message>
    <message>
        <location line="+17"/>
        <source>Вычисление спектра возможно только для статических записей.
Для подробной обработки данных отключите динамическое обновление в таблице Управления записями.</source>
        <translation>Spectra can be computed for static records only.
Switch live updating off in the record table for detailed processing.</translation>
    </message>
    <message>
        <location filename="../../src/table/selrectable_rows.cpp" line="+47"/>
        <source>Ошибка загрузки записи</source>
        <translation>Record loading error</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>В таблице нет места, запись не загружена!</source>
        <translation>The table is full, the record was not loaded!</translation>
    </message>
    <message>
        <location filename="../../src/table/selrectable_cross.cpp" line="+30"/>
        <source>Для вычисления кросс-вариаций необходимо выбрать две записи в перекрывающиеся моменты времени с одинаковым опорным сигналом. Кроме этого записи должны иметь одинаковый интервал времени между отсчетами.</source>
        <translation>Cross deviations need two records that overlap in time and have the same reference signal. The records must also have the same interval between samples.</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Кросс-обработка возможна только при вычислении характеристик стабильности</source>
        <translation>Cross processing is possible for the stability characteristics only</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>Кросс-обработка возможна только для статических записей.
Для подробной обработки данных отключите динамическое обновление в таблице Управления записями.</source>
        <translation>Cross processing is possible for static records only.
Switch live updating off in the record table for detailed processing.</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Кросс-обработка возможна только для записей фазовых измерений.</source>
        <translation>Cross processing is possible for phase records only.</translation>
    </message>
    <message>
        <location line="+29"/>
        <source>Выбранные записи содержат разные сигналы, кросс-обработка невозможна!</source>
        <translation>The chosen records hold different signals: cross processing is impossible!</translation>
    </message>
    <message>
        <location line="+3"/>
        <location filename="../../src/table/selrectable_pairs.cpp" line="+82"/>
        <source>Выбранные записи не пересекаются по времени!</source>
        <translation>The chosen records do not overlap in time!</translation>
    </message>
    <message>
        <location line="+3"/>
        <location filename="../../src/table/selrectable_pairs.cpp" line="-2"/>
        <source>Записи должны иметь одинаковый коэфициент прореживания!</source>
        <translation>The records must have the same sampling interval!</translation>
    </message>
    <message>
        <location line="+3"/>
        <location filename="../../src/table/selrectable_pairs.cpp" line="+4"/>
        <source>Отсчеты выбранных записей нигде не совпадают по времени!</source>
        <translation>No samples of the chosen records stand at the same time!</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Для метода трёх генераторов нужны записи трёх генераторов: A - B и A - C, или также B - C.</source>
        <translation>The three-cornered hat needs records of three clocks: A - B and A - C, or B - C as well.</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>Разница в количестве отсчетов между записями на общем интервале времени превышает 10</source>
        <translation>The numbers of samples of the records in the common time differ by more than 10</translation>
    </message>
    <message>
        <location filename="../../src/table/selrectable_pairs.cpp" line="-39"/>
        <source>Необходимо отметить две записи!</source>
        <translation>Check two records!</translation>
    </message>
    <message>
        <location line="+45"/>
        <source>Вычитаются записи с разными опорными и измеряемыми сигналами!
Возможно в одной из записей следует поменять сигналы местами?</source>
        <translation>The records subtracted have different reference and measured signals!
Perhaps the signals of one of them should be swapped?</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>Записи должны быть сделны для одинаковых сигналов!</source>
        <translation>The records must be of the same signals!</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Продолжить объединение?</source>
        <translation>Go on merging?</translation>
    </message>
    <message>
        <location line="+25"/>
        <source>Между записями слишком большой разрыв по фазе!
Сдвинуть фазу во второй записи?</source>
        <translation>The phase jump between the records is too large!
Shift the phase of the second record?</translation>
    </message>
    <message>
        <location line="+11"/>
        <source>Невозможно объединение записей с разными типами данных!</source>
        <translation>Records of different kinds of data cannot be merged!</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Записи должны иметь одинаковый коэфициент прореживания! </source>
        <translation>The records must have the same sampling interval! </translation>
    </message>
    <message>
        <location line="+2"/>
        <source>В одной из записей нет отсчетов!</source>
        <translation>One of the records has no samples!</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Выбранные записи не должны пересекаться во времени!</source>
        <translation>The chosen records must not overlap in time!</translation>
    </message>
    <message>
        <location line="+43"/>
        <source>Запись, из которой Вы хотите вырезать кусок, была удалена из таблицы,
 поэтому операция не может быть выполнена.</source>
        <translation>The record that you want to cut a stretch of was removed from the table,
 so the operation cannot be carried out.</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Границы участка в записи не найдены, новая запись не создана.</source>
        <translation>The borders of the stretch were not found in the record; no new record was made.</translation>
    </message>
    <message>
        <location line="+11"/>
        <source>Запись не может быть добавлена, 
т.к превышено максимальное количество записей в таблице, равное </source>
        <translation>The record cannot be added:
the table already holds its largest number of records, </translation>
    </message>
    <message>
        <location filename="../../src/table/selrectable_save.cpp" line="+59"/>
        <location line="+49"/>
        <source>Сохранение записи</source>
        <translation>Saving a record</translation>
    </message>
    <message>
        <location line="-36"/>
        <location line="+136"/>
        <source>Сохранять нечего: в таблице не выбрано ни одной записи.</source>
        <translation>Nothing to save: no record is chosen in the table.</translation>
    </message>
    <message>
        <location line="-126"/>
        <source>в записи нет отсчетов</source>
        <translation>the record holds no samples</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>все имена файлов заняты</source>
        <translation>all file names are taken</translation>
    </message>
    <message>
        <location line="+19"/>
        <source>В выбранном каталоге уже содержатся файлы данных за выбранные даты.
Вы можете выбрать другой каталог или сохранить выбранные записи под другим именем.</source>
        <translation>The chosen folder already holds data files of the chosen dates.
You can choose another folder, or save the chosen records under another name.</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Выбрать другую папку</source>
        <translation>Choose another folder</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Сохранить под другим именем</source>
        <translation>Save under another name</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Отменить</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <location line="+17"/>
        <source>Выбрать каталог</source>
        <translation>Choose a folder</translation>
    </message>
    <message>
        <location line="+14"/>
        <source>запись не принята к сохранению</source>
        <translation>the record was not taken for saving</translation>
    </message>
    <message>
        <location line="+16"/>
        <source>недостаточно оперативной памяти</source>
        <translation>not enough memory</translation>
    </message>
    <message>
        <location line="+20"/>
        <source>Сохранение прервано. Последняя запись могла сохраниться не полностью.</source>
        <translation>Saving was stopped. The last record may be saved in part only.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Не удалось сохранить:</source>
        <translation>Could not save:</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Запись успешно сохранена в каталоге </source>
        <translation>The record was saved in the folder </translation>
    </message>
    <message>
        <location line="+2"/>
        <source> под именами с суффиксом </source>
        <translation> under names with the suffix </translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Сохранено записей: %1</source>
        <translation>Records saved: %1</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Ни одна запись не сохранена.</source>
        <translation>No record was saved.</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Интервал между отсчетами не равен целому числу секунд, а файлы записей хранят время с точностью до секунды.</source>
        <translation>The interval between samples is not a whole number of seconds, but recording files keep the time to the second.</translation>
    </message>
    <message>
        <location line="+23"/>
        <source> Перед сохранением в ASCII-файл записи следует обработать! </source>
        <translation> Records must be processed before they are saved to an ASCII file! </translation>
    </message>
    <message>
        <location line="+21"/>
        <source>Обновлять нечего: отметьте записи, загруженные из каталога. Текущие записи обновляются сами.</source>
        <translation>Nothing to refresh: check records that were loaded from a folder. Current records refresh by themselves.</translation>
    </message>
    <message>
        <location line="+20"/>
        <source>Не удалось обновить:</source>
        <translation>Could not refresh:</translation>
    </message>
    <message>
        <location line="+14"/>
        <source>запись не прочитана</source>
        <translation>the record was not read</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>в файлах каталога другая запись</source>
        <translation>the files of the folder hold another record</translation>
    </message>
</context>
<context>
    <name>SeriesGraph</name>
    <message>
        <location filename="../../src/plot/seriesgraph.cpp" line="+21"/>
        <source>Разность частот. </source>
        <translation>Frequency difference. </translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Разность фаз. </source>
        <translation>Phase difference. </translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Кросс-обработка. </source>
        <translation>Cross processing. </translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Интервал измерения %1 с</source>
        <translation>Measurement interval %1 s</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Часовые графики</source>
        <translation>Hourly graphs</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>. Интервал измерения 1 час</source>
        <translation>. Measurement interval 1 hour</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Суточные графики</source>
        <translation>Daily graphs</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>. Интервал измерения 1 сутки</source>
        <translation>. Measurement interval 1 day</translation>
    </message>
    <message>
        <location line="+4"/>
        <location line="+1"/>
        <source>Мин/Макс</source>
        <translation>Min/Max</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Время, ч</source>
        <translation>Time, h</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Время, сут.</source>
        <translation>Time, days</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Время, с</source>
        <translation>Time, s</translation>
    </message>
</context>
<context>
    <name>SpectrumGraph</name>
    <message>
        <location filename="../../src/plot/spectrumgraph.cpp" line="+17"/>
        <source>Спектральная плотность мощности</source>
        <translation>Power spectral density</translation>
    </message>
</context>
<context>
    <name>StabilityGraph</name>
    <message>
        <location filename="../../src/plot/stabilitygraph.cpp" line="+26"/>
        <source>. Дрейф искл.</source>
        <translation>. Drift removed.</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>. С перекрытиями.</source>
        <translation>. Overlapping.</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>. Кросс-обработка.</source>
        <translation>. Cross processing.</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>. Не обновляется.</source>
        <translation>. Not updated.</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>. tau от %1 до %2 с</source>
        <translation>. tau from %1 to %2 s</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Не показаны (мало точек или нет места): </source>
        <translation>Not shown (too few points or no room): </translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Новые отсчеты здесь не учитываются: повторите обработку</source>
        <translation>New samples are not counted in here: process again</translation>
    </message>
</context>
<context>
    <name>StabilityTable</name>
    <message>
        <location filename="../../src/table/core/stabilitytable.cpp" line="+32"/>
        <source>Каналы</source>
        <translation>Channels</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Канал</source>
        <translation>Channel</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Название</source>
        <translation>Name</translation>
    </message>
</context>
<context>
    <name>StaticPhaseForm</name>
    <message>
        <location filename="../../src/plot/staticphaseform.cpp" line="+91"/>
        <source>  (день %1 из %2)</source>
        <translation>  (day %1 of %2)</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Выбор дня. Клавиши: стрелки и PageUp, PageDown – на день, Home и End – в начало и в конец</source>
        <translation>Choice of the day. Keys: arrows, PageUp and PageDown by one day, Home and End to the first and the last</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Выбор дня</source>
        <translation>Choice of the day</translation>
    </message>
    <message>
        <location line="+94"/>
        <source>Время</source>
        <translation>Time</translation>
    </message>
</context>
<context>
    <name>Statistic</name>
    <message>
        <location filename="../../src/stats/statisticname.cpp" line="+10"/>
        <source>Стандартное отклонение (СКО)</source>
        <translation>Standard deviation (SDEV)</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Девиация Аллана (СКДО)</source>
        <translation>Allan deviation (ADEV)</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Девиация Адамара (HDEV)</source>
        <translation>Hadamard deviation (HDEV)</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Модифицированная девиация Аллана (MDEV)</source>
        <translation>Modified Allan deviation (MDEV)</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Параболическая девиация (PDEV)</source>
        <translation>Parabolic deviation (PDEV)</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Девиация времени (ДВИ)</source>
        <translation>Time deviation (TDEV)</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Максимальная ошибка временного интервала (МОВИ)</source>
        <translation>Maximum time interval error (MTIE)</translation>
    </message>
</context>
<context>
    <name>TableForm</name>
    <message>
        <location filename="../../src/plot/tableform.cpp" line="+233"/>
        <location line="+6"/>
        <location line="+11"/>
        <source>Сохранить таблицу</source>
        <translation>Save table</translation>
    </message>
    <message>
        <location line="-17"/>
        <source>ERROR! (file saving)</source>
        <translation>ERROR! (file saving)</translation>
    </message>
    <message>
        <location line="+7"/>
        <location line="+11"/>
        <source>Текстовый файл (*.txt)</source>
        <translation>Text file (*.txt)</translation>
    </message>
    <message>
        <location line="+11"/>
        <source>Таблица результатов измерений</source>
        <translation>Table of measurement results</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Таблица</source>
        <translation>Table</translation>
    </message>
    <message>
        <location line="+21"/>
        <source>Канал</source>
        <translation>Channel</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Название</source>
        <translation>Name</translation>
    </message>
    <message>
        <location line="+21"/>
        <source>&amp;Опции</source>
        <translation>&amp;Options</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>&amp;Экспорт в ASCII</source>
        <translation>&amp;Export to ASCII</translation>
    </message>
</context>
<context>
    <name>TrendTable</name>
    <message>
        <location filename="../../src/table/core/trends.cpp" line="+175"/>
        <source>Название</source>
        <translation>Name</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Разность фаз, нс</source>
        <translation>Phase difference, ns</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>СКО разности фаз, нс</source>
        <translation>SD of phase difference, ns</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>СКО разности фаз (сут), нс</source>
        <translation>SD of phase difference (day), ns</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Разн. частот (лин.)</source>
        <translation>Freq. difference (linear)</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Разн. частот (квадр., середина)</source>
        <translation>Freq. difference (quadr., middle)</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Разн. частот (квадр., конец)</source>
        <translation>Freq. difference (quadr., end)</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Дрейф разн. частот</source>
        <translation>Drift of freq. difference</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Дрейф разн. частот (сут.)</source>
        <translation>Drift of freq. difference (per day)</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Дрейф (сут, л. р.)</source>
        <translation>Drift (per day, lin. reg.)</translation>
    </message>
</context>
<context>
    <name>WarnDiag</name>
    <message>
        <location filename="../../src/prompt/warndiag.ui" line="+5"/>
        <location filename="../../src/prompt/warndiag.cpp" line="+27"/>
        <source>Сообщение</source>
        <translation>Message</translation>
    </message>
    <message>
        <location filename="../../src/prompt/warndiag.cpp" line="+26"/>
        <source>Скрыть подробности проблемы</source>
        <translation>Hide the details of the problem</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Показать подробности проблемы...</source>
        <translation>Show the details of the problem...</translation>
    </message>
</context>
<context>
    <name>addNewFormat_class</name>
    <message>
        <location filename="../../src/load/addnewformat_class.ui" line="+6"/>
        <source>Добавление формата для чтения ASCII-данных</source>
        <translation>Adding a format for reading ASCII data</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>&amp;Шаблон строки:</source>
        <translation>&amp;Line template:</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Как читается строка файла</source>
        <translation>How a line of the file is read</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>[t] - время, [имя] - данные, &lt;имя&gt; - пропуск, [t_12] - число из 12 символов; прочие знаки должны стоять в самой строке.
Пример: &lt;метка&gt; [t]; [x] для строки «A1 0.5; 1e-9».</source>
        <translation>[t] is the time, [name] data, &lt;name&gt; is skipped, [t_12] is a number of 12 characters; other characters must stand in the line itself.
Example: &lt;label&gt; [t]; [x] for the line “A1 0.5; 1e-9”.</translation>
    </message>
    <message>
        <location filename="../../src/load/addnewformat_class.cpp" line="+31"/>
        <source>Корректный формат</source>
        <translation>Correct format</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Недопустимый формат</source>
        <translation>Invalid format</translation>
    </message>
</context>
<context>
    <name>helpBrowser</name>
    <message>
        <location filename="../../src/help/helpbrowser.cpp" line="+105"/>
        <location line="+4"/>
        <source>Внешняя ссылка</source>
        <translation>External link</translation>
    </message>
    <message>
        <location line="-3"/>
        <source>Ссылка ведёт за пределы справки:
%1
Открыть её другой программой?</source>
        <translation>The link leads out of the help:
%1
Open it with another program?</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Не удалось открыть ссылку:
%1</source>
        <translation>The link could not be opened:
%1</translation>
    </message>
    <message>
        <location line="+9"/>
        <source>Файлы справки не найдены или повреждены. Остальные функции программы от них не зависят.</source>
        <translation>The help files are missing or damaged. Everything else in the program works without them.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Файлы справки ожидались здесь:</source>
        <translation>The help files were expected here:</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Установите программу заново или скопируйте её папку «doc» в это место, затем запустите программу снова.</source>
        <translation>Install the program anew, or copy its folder “doc” to this place, and start the program again.</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Сообщение: %1</source>
        <translation>Message: %1</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Справка недоступна</source>
        <translation>Help is not available</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>Страница не найдена</source>
        <translation>Page not found</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>В справке нет страницы «%1».</source>
        <translation>The help has no page “%1”.</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>К началу справки</source>
        <translation>To the start of the help</translation>
    </message>
</context>
<context>
    <name>mapStruct</name>
    <message>
        <location filename="../../src/store/core/mapstruct_index.cpp" line="+160"/>
        <source>папка недоступна</source>
        <translation>folder not available</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>в данный момент выбранный каталог не доступен</source>
        <translation>the chosen folder is not available at the moment</translation>
    </message>
    <message>
        <location line="+19"/>
        <location line="+2"/>
        <source>Чтение каталога</source>
        <translation>Reading the Folder</translation>
    </message>
    <message>
        <location line="-2"/>
        <source>При чтении файлов возникли ошибки.</source>
        <translation>There were errors in reading the files.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Не удалось найти файлы:</source>
        <translation>These files were not found:</translation>
    </message>
    <message>
        <location line="+41"/>
        <source>Ошибки при чтении файла </source>
        <translation>The file could not be read: </translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Ошибки открытия файла </source>
        <translation>The file could not be opened: </translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Ошибки записи в информационной структуре: </source>
        <translation>Faults in an information structure: </translation>
    </message>
    <message>
        <location line="+3"/>
        <source> проблема с количеством записей</source>
        <translation> wrong number of records</translation>
    </message>
    <message>
        <location line="+11"/>
        <source>не читается информационная структура о записи номер</source>
        <translation>this information structure cannot be read: number</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>всего не читается: %1</source>
        <translation>unreadable in all: %1</translation>
    </message>
    <message>
        <location filename="../../src/store/core/mapstruct_save.cpp" line="+138"/>
        <source>Сохранение остановлено, записано суток: %1</source>
        <translation>Saving was stopped, days written: %1</translation>
    </message>
    <message>
        <location line="+30"/>
        <location line="+5"/>
        <source>Ошибка при открытии inf-файла. Файл не сохранён!</source>
        <translation>The inf file could not be opened. The file was not saved!</translation>
    </message>
    <message>
        <location line="-3"/>
        <source>Ошибка при открытии dat-файла. Файл не сохранён!</source>
        <translation>The dat file could not be opened. The file was not saved!</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Файл не сохранён: в нём не может быть больше 2 Гбайт.</source>
        <translation>The file was not saved: it cannot hold more than 2 GB.</translation>
    </message>
    <message>
        <location line="+5"/>
        <location line="+2"/>
        <source>Файл не сохранён:</source>
        <translation>The file was not saved:</translation>
    </message>
</context>
<context>
    <name>popupmenu</name>
    <message>
        <location filename="../../src/plot/popupmenu.cpp" line="+28"/>
        <location line="+9"/>
        <source>Копировать выделенное</source>
        <translation>Copy selection</translation>
    </message>
    <message>
        <location line="-8"/>
        <location line="+10"/>
        <source>Копировать всю таблицу</source>
        <translation>Copy the whole table</translation>
    </message>
    <message>
        <location line="-9"/>
        <location line="+11"/>
        <source>Сохранить таблицу в файл</source>
        <translation>Save the table to a file</translation>
    </message>
    <message>
        <location line="-10"/>
        <location line="+12"/>
        <source>Печать таблицы</source>
        <translation>Print the table</translation>
    </message>
</context>
<context>
    <name>saverecform</name>
    <message>
        <location filename="../../src/load/saverecform.ui" line="+6"/>
        <source>Сохранение в ASCII-файл</source>
        <translation>Saving to an ASCII file</translation>
    </message>
    <message>
        <location line="+11"/>
        <source>Укажите файл для сохранения данных</source>
        <translation>Choose the file to save the data to</translation>
    </message>
    <message>
        <location line="+9"/>
        <source>Полный путь к файлу; имя без каталога относится к рабочему каталогу</source>
        <translation>Full path of the file; a name without a folder is taken in the working folder</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>О&amp;бзор...</source>
        <translation>&amp;Browse...</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Выбрать каталог; имя файла составляется заново</source>
        <translation>Choose a folder; the file name is made anew</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Комментарий</source>
        <translation>Comment</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Начало файла. Без своего комментария в файл пишется стандартный заголовок</source>
        <translation>The head of the file. Without a comment of your own the standard header is written</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Написать свой комментарий вместо стандартного заголовка; пустой комментарий убирает заголовок</source>
        <translation>Write a comment of your own in place of the standard header; an empty comment removes the header</translation>
    </message>
    <message>
        <location line="+27"/>
        <source>Сохранить</source>
        <translation>Save</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Записать файл</source>
        <translation>Write the file</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Закрыть окно, ничего не записывая; во время записи - остановить ее</source>
        <translation>Close the window without writing anything; while it is being written, stop that</translation>
    </message>
    <message>
        <location filename="../../src/load/saverecform.cpp" line="+123"/>
        <source>Количество отсчетов: %1</source>
        <translation>Number of samples: %1</translation>
    </message>
    <message>
        <location line="+17"/>
        <source>Выбрать каталог</source>
        <translation>Choose a folder</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>Принять</source>
        <translation>Accept</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Изменить</source>
        <translation>Edit</translation>
    </message>
    <message>
        <location line="+29"/>
        <source>Укажите имя файла.</source>
        <translation>Enter a file name.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Под именем %1 уже есть каталог или устройство. Укажите другое имя файла.</source>
        <translation>There already is a folder or a device named %1. Enter another file name.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Каталога %1 нет. Укажите другой каталог.</source>
        <translation>There is no folder %1. Choose another folder.</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Файл %1 уже существует. Заменить его?</source>
        <translation>The file %1 exists already. Replace it?</translation>
    </message>
    <message>
        <location line="+30"/>
        <source>Не удалось сохранить файл %1.
%2</source>
        <translation>Could not save the file %1.
%2</translation>
    </message>
</context>
<context>
    <name>schedule</name>
    <message>
        <location filename="../../src/store/schedule.ui" line="+28"/>
        <source>График записей</source>
        <translation>Chart of recordings</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Начало показанного интервала</source>
        <translation>Start of the interval in sight</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>Конец показанного интервала</source>
        <translation>End of the interval in sight</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Таблица записей</source>
        <translation>Table of recordings</translation>
    </message>
    <message>
        <location line="+10"/>
        <location filename="../../src/store/schedule.cpp" line="+108"/>
        <location filename="../../src/store/schedule_select.cpp" line="+183"/>
        <source>Канал</source>
        <translation>Channel</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Начало</source>
        <translation>Start</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Конец</source>
        <translation>Stop</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Сигналы</source>
        <translation>Signals</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Состояние</source>
        <translation>State</translation>
    </message>
    <message>
        <location line="+20"/>
        <source>Остановить</source>
        <translation>Stop</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Прервать загрузку; начатая запись не сохранится</source>
        <translation>Break off the load; the record that has been begun is dropped</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>Загрузить с прореживанием...</source>
        <translation>Load decimated...</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Загрузить выбранные записи, беря один отсчет из нескольких</source>
        <translation>Load the selected recordings, taking one sample out of several</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>Загрузить</source>
        <translation>Load</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Загрузить выбранные записи</source>
        <translation>Load the selected recordings</translation>
    </message>
    <message>
        <location filename="../../src/store/schedule_load.cpp" line="+127"/>
        <source>Загружается канал %1: %2</source>
        <translation>Loading channel %1: %2</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Загрузка остановлена.</source>
        <translation>Loading was stopped.</translation>
    </message>
    <message>
        <location line="+4"/>
        <source>Запись не загружена: %1</source>
        <translation>Recording not loaded: %1</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Загружен канал %1: отсчетов %2</source>
        <translation>Channel %1 loaded: %2 samples</translation>
    </message>
    <message>
        <location line="+10"/>
        <source>Загрузка записи</source>
        <translation>Loading of a recording</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Больше не показывать</source>
        <translation>Do not show again</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <location filename="../../src/store/schedule.cpp" line="+1"/>
        <source> число записей</source>
        <translation> recordings</translation>
    </message>
    <message>
        <location line="+109"/>
        <source>запись завершена</source>
        <translation>finished recording</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>запись продолжается</source>
        <translation>recording goes on</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>запись прервана</source>
        <translation>recording broken off</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>нет файла</source>
        <translation>no file</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Задать интервал</source>
        <translation>Set interval</translation>
    </message>
    <message>
        <location line="+8"/>
        <source>нет записей</source>
        <translation>no recording</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>выбрано для загрузки</source>
        <translation>selected for loading</translation>
    </message>
    <message>
        <location line="+3"/>
        <source>Нажмите на строку, чтобы выбрать запись; Ctrl добавляет к выбранным</source>
        <translation>Click a row to select its recording; Ctrl adds to the selection</translation>
    </message>
    <message>
        <location filename="../../src/store/schedule_select.cpp" line="-68"/>
        <source>Выберите записи мышью; Ctrl добавляет к выбранным, протягивание выбирает несколько.</source>
        <translation>Select recordings with the mouse; Ctrl adds to the selection, dragging selects several.</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>Выбрано записей: %1. Последняя: канал %2, %3 - %4</source>
        <translation>Recordings selected: %1. The last one: channel %2, %3 - %4</translation>
    </message>
    <message>
        <location line="+62"/>
        <source>день</source>
        <translation>day</translation>
    </message>
    <message>
        <location line="+7"/>
        <source> Запись №</source>
        <translation> Recording No. </translation>
    </message>
    <message>
        <location line="+1"/>
        <source> (из</source>
        <translation> (of</translation>
    </message>
</context>
</TS>
