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
        <location filename="../../src/plot/avarform.cpp" line="+53"/>
        <source>Интервал времени измерения, с</source>
        <translation>Averaging time, s</translation>
    </message>
    <message>
        <location line="+10"/>
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
        <location line="+163"/>
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
    <name>CrossRows</name>
    <message>
        <location filename="../../src/table/core/crosspair.cpp" line="+133"/>
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
    <name>FormatFileReader</name>
    <message>
        <location filename="../../src/load/core/formatfilewriter.cpp" line="+72"/>
        <source>total number of counts </source>
        <translation>total number of counts </translation>
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
    <name>MainWindow</name>
    <message>
        <location filename="../../src/app/mainwindow.cpp" line="+66"/>
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
        <location line="+60"/>
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
        <location line="+20"/>
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
        <source>Недавно открытые записи</source>
        <translation>Recent records</translation>
    </message>
    <message>
        <location line="+20"/>
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
        <location line="+17"/>
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
        <location line="+22"/>
        <source>Из файла</source>
        <translation>From file</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Данные из текстового файла</source>
        <translation>Data from a text file</translation>
    </message>
    <message>
        <location line="+35"/>
        <source>Формат 1</source>
        <translation>Format 1</translation>
    </message>
    <message>
        <location line="+11"/>
        <source>Укажите файл или перетащите его в это окно</source>
        <translation>Choose a file or drop it here</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Полный путь к файлу данных</source>
        <translation>Full path of the data file</translation>
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
        <location line="+8"/>
        <source>Открыть файл в блокноте</source>
        <translation>Open the file in a text editor</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Показать содержимое файла в программе просмотра текста</source>
        <translation>Show the content of the file in a text editor</translation>
    </message>
    <message>
        <location line="+18"/>
        <source>Выбрать &amp;тип файла:</source>
        <translation>File &amp;type:</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Тип определяется по содержимому файла; выбор типа подставляет его шаблон</source>
        <translation>The type is guessed from the content of the file; choosing a type fills in its template</translation>
    </message>
    <message>
        <location line="+5"/>
        <source>&amp;Шаблон строки:</source>
        <translation>&amp;Line template:</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Как читается строка файла: [t] - столбец времени, [имя] - столбец данных, &lt;имя&gt; - пропуск</source>
        <translation>How a line of the file is read: [t] is the time column, [name] a data column, &lt;name&gt; is skipped</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>&amp;Удалить</source>
        <translation>&amp;Delete</translation>
    </message>
    <message>
        <location line="+1"/>
        <source>Удалить выбранный шаблон из списка</source>
        <translation>Remove the chosen template from the list</translation>
    </message>
    <message>
        <location line="+8"/>
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
        <source>&amp;Интервал отсчетов, с:</source>
        <translation>Sampling &amp;interval, s:</translation>
    </message>
    <message>
        <location line="+12"/>
        <source>&amp;Множитель (значения
× множитель = с):</source>
        <translation>&amp;Multiplier (values
× multiplier = s):</translation>
    </message>
    <message>
        <location line="+25"/>
        <source>Изм&amp;еряемый сигнал:</source>
        <translation>Meas&amp;ured signal:</translation>
    </message>
    <message>
        <location line="-30"/>
        <source>Секунд в единице столбца времени; без столбца времени - секунд между строками</source>
        <translation>Seconds in a unit of the time column; without a time column, seconds between lines</translation>
    </message>
    <message>
        <location line="+13"/>
        <source>1 - данные в секундах, 1e-6 - в микросекундах, 1e-9 - в наносекундах</source>
        <translation>1 for data in seconds, 1e-6 in microseconds, 1e-9 in nanoseconds</translation>
    </message>
    <message>
        <location line="+5"/>
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
        <location line="+33"/>
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
        <location filename="../../src/load/openfileglobform_file.cpp" line="+161"/>
        <source>Загрузить</source>
        <translation>Load</translation>
    </message>
    <message>
        <location line="+7"/>
        <source>&amp;Закрыть</source>
        <translation>&amp;Close</translation>
    </message>
    <message>
        <location filename="../../src/load/openfileglobform.cpp" line="+52"/>
        <source>Не удалось открыть программу просмотра текста.
%1</source>
        <translation>The text editor could not be started.
%1</translation>
    </message>
    <message>
        <location line="+96"/>
        <source>Загрузка данных измерений из файла.
Для выбора записей следует указать файл данных (ASCII-файлы или файлы программ компаратора *.inf)</source>
        <translation>Loading measurement data from a file.
Choose a data file (ASCII files or files of the comparator programs *.inf)</translation>
    </message>
    <message>
        <location line="+3"/>
        <location filename="../../src/load/openfileglobform_file.cpp" line="-59"/>
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
        <location filename="../../src/load/openfileglobform_file.cpp" line="+39"/>
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
        <location line="+10"/>
        <source>Выбрать файл</source>
        <translation>Choose file</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Текстовые файлы (*.txt *.dat *.csv *.asc);;Все файлы (*)</source>
        <translation>Text files (*.txt *.dat *.csv *.asc);;All files (*)</translation>
    </message>
    <message>
        <location line="+18"/>
        <source>Далее</source>
        <translation>Next</translation>
    </message>
    <message>
        <location line="+7"/>
        <location line="+49"/>
        <source>Файл не выбран
</source>
        <translation>No file is chosen
</translation>
    </message>
    <message>
        <location line="-44"/>
        <source>Не найдена программа просмотра текста.</source>
        <translation>No text editor was found.</translation>
    </message>
    <message>
        <location line="+15"/>
        <source>Записи программ компаратора (*.inf) из этого окна пока не загружаются.
Укажите текстовый файл с данными измерений.</source>
        <translation>Recordings of the comparator programs (*.inf) cannot be loaded from this window yet.
Choose a text file with measurement data.</translation>
    </message>
    <message>
        <location line="+34"/>
        <location line="+114"/>
        <source>Дата начала измерений введена некорректно
</source>
        <translation>The start date of the measurement is not valid
</translation>
    </message>
    <message>
        <location line="-111"/>
        <source>Номер канала не указан
</source>
        <translation>The channel number is not given
</translation>
    </message>
    <message>
        <location line="+2"/>
        <location line="+107"/>
        <source>Интервал между отсчетами не указан
</source>
        <translation>The interval between samples is not given
</translation>
    </message>
    <message>
        <location line="-105"/>
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
        <location line="+63"/>
        <source>Несоответствие формата в строке </source>
        <translation>Format mismatch in line </translation>
    </message>
    <message>
        <location line="+2"/>
        <source>и т.д.</source>
        <translation>etc.</translation>
    </message>
    <message>
        <location line="+9"/>
        <source>При чтении файла по шаблону </source>
        <translation>Errors while reading the file by the template </translation>
    </message>
    <message>
        <location line="+1"/>
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
        <location line="+10"/>
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
        <location line="+2"/>
        <source>Шаблоном %1 нельзя прочитать файл: в нем ошибка.
Выберите другой шаблон.</source>
        <translation>The template %1 cannot be used to read the file: it has an error.
Choose another template.</translation>
    </message>
    <message>
        <location line="+2"/>
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
        <location line="+2"/>
        <source>В файле нет данных, соответствующих шаблону %1.
Проверьте файл или выберите другой шаблон.</source>
        <translation>The file has no data that fit the template %1.
Check the file or choose another template.</translation>
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
        <location filename="../../src/plot/plotform.cpp" line="+167"/>
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
        <location filename="../../src/plot/plotform_export.cpp" line="+412"/>
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
        <location line="+36"/>
        <source>Ось, по которой работают маркеры и масштаб</source>
        <translation>The axis that markers and zoom act on</translation>
    </message>
    <message>
        <location line="-55"/>
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
        <location filename="../../src/plot/plotform_export.cpp" line="-105"/>
        <source>Нет ни одной кривой</source>
        <translation>There is no curve</translation>
    </message>
    <message>
        <location line="+0"/>
        <source>Неизвестный формат изображения</source>
        <translation>Unknown picture format</translation>
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
        <source>Не удалось сохранить файл</source>
        <translation>Could not save the file</translation>
    </message>
    <message>
        <location line="+83"/>
        <source>Не удалось напечатать график.</source>
        <translation>The graph could not be printed.</translation>
    </message>
    <message>
        <location line="+45"/>
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
        <location filename="../../src/table/selrectable_graphs.cpp" line="+183"/>
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
        <location filename="../../src/table/selrectable.cpp" line="+151"/>
        <source>Записей нет.
Нажмите «Добавить запись» и выберите файл измерений,
или перетащите файл сюда.</source>
        <translation>There are no records.
Press &quot;Add record&quot; and choose a measurement file,
or drop a file here.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>Изменить время начала записи</source>
        <translation>Change the start time of the record</translation>
    </message>
    <message>
        <location line="+1"/>
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
        <location filename="../../src/table/selrectable_graphs.cpp" line="-118"/>
        <source>Собственная форма программы: при малых m её значения ниже, чем у общепринятой
PDEV (на 18, 11 и 4 % при m = 2, 4 и 8 для белого фазового шума)</source>
        <translation>The program&apos;s own form: at small m its values lie below the usual PDEV
(by 18, 11 and 4 % at m = 2, 4 and 8 in white phase noise)</translation>
    </message>
    <message>
        <location line="+81"/>
        <source>Таблица вариаций (</source>
        <translation>Table of deviations (</translation>
    </message>
    <message>
        <location line="+38"/>
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
        <location filename="../../src/table/selrectable_rows.cpp" line="+44"/>
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
        <location line="+24"/>
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
        <location line="+36"/>
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
        <location filename="../../src/plot/stabilitygraph.cpp" line="+22"/>
        <source>. Дрейф искл.</source>
        <translation>. Drift removed.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>. С перекрытиями.</source>
        <translation>. Overlapping.</translation>
    </message>
    <message>
        <location line="+2"/>
        <source>. Кросс-обработка.</source>
        <translation>. Cross processing.</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>. tau от %1 до %2 с</source>
        <translation>. tau from %1 to %2 s</translation>
    </message>
    <message>
        <location line="+6"/>
        <source>Не показаны (мало точек или нет места): </source>
        <translation>Not shown (too few points or no room): </translation>
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
        <location filename="../../src/plot/staticphaseform.cpp" line="+133"/>
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
        <location filename="../../src/plot/tableform.cpp" line="+171"/>
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
</TS>
